package sum.multimedia;

import sum.intern.Application;

/** A sound; test machines have no loudspeaker, so loading is only reported. */
public class Ton {
    public void ladeTon(String path) {
        Application.print("Ton", "ladeTon", path);
    }
}

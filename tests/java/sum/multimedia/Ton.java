package sum.multimedia;

import sum.intern.Application;

/** A sound; test machines have no loudspeaker, so loading and playing are only reported. */
public class Ton {
    public void ladeTon(String path) {
        Application.report("Ton", "ladeTon", path);
    }

    public void spieleTon() {
        Application.report("Ton", "spieleTon");
    }
}

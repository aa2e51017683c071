package sum.multimedia;

import sum.intern.Application;

/** A film; it has no place in the window, and only the choice of the file is reported. */
public class Film {
    public Film(String path) {
        Application.print("Film", path);
    }
}

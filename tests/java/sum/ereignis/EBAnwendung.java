package sum.ereignis;

import sum.intern.Application;

/** Event-driven program: opens the window that the subclass then fills. */
public class EBAnwendung {
    public EBAnwendung(int width, int height) {
        Application.open(this, width, height);
    }
}

package sum.ereignis;

import sum.intern.Application;

/** Event-driven program: opens the window that the subclass then fills. */
public class EBAnwendung {
    private static final int USUAL_WIDTH = 640;
    private static final int USUAL_HEIGHT = 480;

    public EBAnwendung() {
        this(USUAL_WIDTH, USUAL_HEIGHT);
    }

    public EBAnwendung(int width, int height) {
        Application.open(this, width, height);
    }

    public EBAnwendung(int left, int top, int width, int height) {
        this(width, height);
        Application.current().frame.setLocation(left, top);
    }
}

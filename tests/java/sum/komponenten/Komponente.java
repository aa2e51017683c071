package sum.komponenten;

import java.util.*;
import javax.swing.JComponent;
import sum.intern.Application;

/** Something placed in the window by its constructor's coordinates. */
public abstract class Komponente<V extends JComponent> {
    /** The Swing component that covers the whole rectangle. */
    public final V view;
    /** The method registered for each event, by the event's word. */
    public final Map<String, String> handlers = new LinkedHashMap<>();

    protected Komponente(V view, double left, double top, double width, double height) {
        this.view = view;
        view.setBounds((int) Math.rint(left), (int) Math.rint(top), (int) Math.rint(width), (int) Math.rint(height));
        JComponent content = Application.current().content;
        content.add(view);
        content.revalidate();
        content.repaint();
    }

    /** What the component was given to show; several values are separated by the character with code 1. */
    public abstract String text();

    protected void raise(String event) {
        String method = handlers.get(event);
        if (method != null) {
            Application.current().call(method);
        }
    }
}

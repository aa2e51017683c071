package sum.komponenten;

import java.awt.event.MouseAdapter;
import java.awt.event.MouseEvent;
import java.util.LinkedHashMap;
import java.util.Map;
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
        Application.current().place(view);
    }

    /** What the component was given to show; several values are separated by the character with code 1. */
    public abstract String text();

    protected final void raise(String event) {
        String method = handlers.get(event);
        if (method != null) {
            Application.current().call(method);
        }
    }

    /** Registers the handler that the longer constructors take: a click anywhere on the component calls it. */
    protected final void onClick(JComponent target, String method) {
        handlers.put("Geklickt", method);
        target.addMouseListener(new MouseAdapter() {
            @Override
            public void mouseClicked(MouseEvent e) {
                raise("Geklickt");
            }
        });
    }
}

package sum.komponenten;

import java.awt.event.*;
import javax.swing.JComponent;

/** A component that can hold the keyboard focus and says so. */
public abstract class FokusKomponente<I extends JComponent> extends Komponente<JComponent> {
    /** The part of the view that takes the keyboard: the text area inside its scroll pane. */
    public final I input;

    protected FokusKomponente(JComponent view, I input, double left, double top, double width, double height) {
        super(view, left, top, width, height);
        this.input = input;
        input.addFocusListener(new FocusListener() {
            @Override
            public void focusGained(FocusEvent e) {
                raise("FokusErhalten");
            }

            @Override
            public void focusLost(FocusEvent e) {
                raise("FokusVerloren");
            }
        });
    }

    protected FokusKomponente(I input, double left, double top, double width, double height) {
        this(input, input, left, top, width, height);
    }

    public void setzeBearbeiterFokusErhalten(String method) {
        handlers.put("FokusErhalten", method);
    }

    public void setzeBearbeiterFokusVerloren(String method) {
        handlers.put("FokusVerloren", method);
    }
}

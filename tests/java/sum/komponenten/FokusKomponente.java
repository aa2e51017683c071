package sum.komponenten;

import java.awt.event.FocusEvent;
import java.awt.event.FocusListener;
import javax.swing.JComponent;

/** A component that can hold the keyboard focus and says so. */
public abstract class FokusKomponente extends Komponente {
    private final JComponent input;

    /** The input is the part of the view that takes the keyboard: the text area inside its scroll pane. */
    protected FokusKomponente(JComponent view, JComponent input, double left, double top, double width,
                              double height) {
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

    public JComponent input() {
        return input;
    }

    public void setzeBearbeiterFokusErhalten(String method) {
        setHandler("FokusErhalten", method);
    }

    public void setzeBearbeiterFokusVerloren(String method) {
        setHandler("FokusVerloren", method);
    }
}

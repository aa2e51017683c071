package sum.komponenten;

import java.awt.Color;
import javax.swing.AbstractButton;

/** What can be clicked: push button, switch and radio button. */
public abstract class Schaltflaeche extends FokusKomponente {
    private final AbstractButton button;

    protected Schaltflaeche(AbstractButton button, double left, double top, double width, double height) {
        super(button, button, left, top, width, height);
        this.button = button;
        button.setBackground(Color.WHITE);
        button.addActionListener(e -> raise("Geklickt"));
    }

    protected AbstractButton button() {
        return button;
    }

    public void setzeInhalt(String text) {
        button.setText(text);
    }

    public void setzeBearbeiterGeklickt(String method) {
        setHandler("Geklickt", method);
    }

    @Override
    public String text() {
        return button.getText();
    }
}

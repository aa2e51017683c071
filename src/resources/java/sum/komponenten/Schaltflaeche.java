package sum.komponenten;

import java.awt.Color;
import javax.swing.AbstractButton;

/** What can be clicked: push button, switch and radio button. */
public abstract class Schaltflaeche extends FokusKomponente<AbstractButton> {
    protected Schaltflaeche(AbstractButton button, double left, double top, double width, double height) {
        super(button, left, top, width, height);
        button.setBackground(Color.WHITE);
        button.addActionListener(e -> raise("Geklickt"));
    }

    public void setzeInhalt(String text) {
        input.setText(text);
    }

    public void setzeBearbeiterGeklickt(String method) {
        handlers.put("Geklickt", method);
    }

    @Override
    public String text() {
        return input.getText();
    }
}

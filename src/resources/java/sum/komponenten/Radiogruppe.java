package sum.komponenten;

import javax.swing.ButtonGroup;

/** Lets at most one of its radio buttons be on; it shows nothing itself. */
public class Radiogruppe {
    private final ButtonGroup group = new ButtonGroup();

    public void fuegeEin(Radioknopf radioButton) {
        group.add(radioButton.input);
    }
}

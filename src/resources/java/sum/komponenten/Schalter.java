package sum.komponenten;

import javax.swing.JCheckBox;

public class Schalter extends Schaltflaeche {
    public Schalter(double left, double top, double width, double height, String text) {
        super(new JCheckBox(text), left, top, width, height);
    }

    public Schalter(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        setzeBearbeiterGeklickt(clicked);
    }

    public void schalteAn() {
        input.setSelected(true);
    }
}

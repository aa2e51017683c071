package sum.komponenten;

import javax.swing.JRadioButton;

public class Radioknopf extends Schaltflaeche {
    public Radioknopf(double left, double top, double width, double height, String text) {
        super(new JRadioButton(text), left, top, width, height);
    }

    public Radioknopf(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        setzeBearbeiterGeklickt(clicked);
    }
}

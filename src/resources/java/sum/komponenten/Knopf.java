package sum.komponenten;

import javax.swing.JButton;

public class Knopf extends Schaltflaeche {
    public Knopf(double left, double top, double width, double height, String text) {
        super(new JButton(text), left, top, width, height);
    }

    public Knopf(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        setzeBearbeiterGeklickt(clicked);
    }
}

package sum.komponenten;

import javax.swing.JTextField;

public class Textfeld extends Eingabefeld<JTextField> {
    public Textfeld(double left, double top, double width, double height, String text) {
        super(new JTextField(text), left, top, width, height);
    }

    public Textfeld(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        onClick(input, clicked);
    }
}

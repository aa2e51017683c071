package sum.komponenten;

import javax.swing.JPasswordField;

public class Kennwortfeld extends Eingabefeld<JPasswordField> {
    public Kennwortfeld(double left, double top, double width, double height, char shown) {
        super(new JPasswordField(), left, top, width, height);
        input.setEchoChar(shown);
    }

    public Kennwortfeld(double left, double top, double width, double height, char shown, String clicked) {
        this(left, top, width, height, shown);
        onClick(input, clicked);
    }

    /** The character shown for every typed one: the constructor's only text. */
    @Override
    public String text() {
        return String.valueOf(input.getEchoChar());
    }
}

package sum.komponenten;

import java.awt.Font;
import javax.swing.*;

public class Etikett extends Komponente<JLabel> {
    private static final int[] ALIGNMENTS = {SwingConstants.LEFT, SwingConstants.CENTER, SwingConstants.RIGHT};

    public Etikett(double left, double top, double width, double height, String text) {
        super(new JLabel(text), left, top, width, height);
    }

    public Etikett(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        onClick(view, clicked);
    }

    public void setzeInhalt(String text) {
        view.setText(text);
    }

    public void setzeAusrichtung(int alignment) {
        view.setHorizontalAlignment(ALIGNMENTS[alignment]);
    }

    /** A chosen size also drops the bold face of the default. */
    public void setzeSchriftgroesse(int size) {
        view.setFont(view.getFont().deriveFont(Font.PLAIN, size));
    }

    @Override
    public String text() {
        return view.getText();
    }
}

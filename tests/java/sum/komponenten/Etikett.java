package sum.komponenten;

import java.awt.Font;
import javax.swing.JLabel;
import javax.swing.SwingConstants;

public class Etikett extends Komponente {
    private static final int[] ALIGNMENTS = {SwingConstants.LEFT, SwingConstants.CENTER, SwingConstants.RIGHT};

    private final JLabel label;

    public Etikett(double left, double top, double width, double height, String text) {
        this(new JLabel(text), left, top, width, height);
    }

    private Etikett(JLabel label, double left, double top, double width, double height) {
        super(label, left, top, width, height);
        this.label = label;
    }

    public void setzeInhalt(String text) {
        label.setText(text);
    }

    public void setzeAusrichtung(int alignment) {
        label.setHorizontalAlignment(ALIGNMENTS[alignment]);
    }

    /** A chosen size also drops the bold face of the default. */
    public void setzeSchriftgroesse(int size) {
        label.setFont(label.getFont().deriveFont(Font.PLAIN, size));
    }

    @Override
    public String text() {
        return label.getText();
    }
}

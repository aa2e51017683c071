package sum.komponenten;

import java.awt.Color;
import javax.swing.JProgressBar;

/** A bar filled from the left; it lies down whatever its shape. */
public class Fortschrittsbalken extends Komponente {
    private final JProgressBar bar;

    public Fortschrittsbalken(double left, double top, double width, double height, int minimum, int maximum) {
        this(new JProgressBar(minimum, maximum), left, top, width, height);
    }

    private Fortschrittsbalken(JProgressBar bar, double left, double top, double width, double height) {
        super(bar, left, top, width, height);
        this.bar = bar;
        bar.setBackground(Color.WHITE);
    }

    public void setzeWert(int value) {
        bar.setValue(value);
    }

    @Override
    public String text() {
        return bar.getMinimum() + "\1" + bar.getMaximum();
    }
}

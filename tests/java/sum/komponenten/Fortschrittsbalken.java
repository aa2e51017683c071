package sum.komponenten;

import java.awt.Color;
import javax.swing.JProgressBar;

/** A bar filled from the left; it lies down whatever its shape. */
public class Fortschrittsbalken extends Komponente<JProgressBar> {
    public Fortschrittsbalken(double left, double top, double width, double height, int minimum, int maximum) {
        super(new JProgressBar(minimum, maximum), left, top, width, height);
        view.setBackground(Color.WHITE);
    }

    public void setzeWert(int value) {
        view.setValue(value);
    }

    @Override
    public String text() {
        return view.getMinimum() + "\1" + view.getMaximum();
    }
}

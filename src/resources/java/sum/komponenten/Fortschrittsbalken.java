package sum.komponenten;

import java.awt.Color;
import javax.swing.JProgressBar;
import javax.swing.SwingConstants;

/** A bar filled from the left; one that is higher than wide stands and is filled from below. */
public class Fortschrittsbalken extends Komponente<JProgressBar> {
    public Fortschrittsbalken(double left, double top, double width, double height, int minimum, int maximum) {
        super(new JProgressBar(height > width ? SwingConstants.VERTICAL : SwingConstants.HORIZONTAL, minimum, maximum),
              left, top, width, height);
        view.setBackground(Color.WHITE);
    }

    public Fortschrittsbalken(double left, double top, double width, double height, int minimum, int maximum,
                              String clicked) {
        this(left, top, width, height, minimum, maximum);
        onClick(view, clicked);
    }

    public void setzeWert(int value) {
        view.setValue(value);
    }

    @Override
    public String text() {
        return view.getMinimum() + "\1" + view.getMaximum();
    }
}

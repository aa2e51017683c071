package sum.komponenten;

import javax.swing.JSlider;
import javax.swing.SwingConstants;

public class Regler extends FokusKomponente {
    private final JSlider slider;

    public Regler(double left, double top, double width, double height, int start, int minimum, int maximum) {
        this(new JSlider(height > width ? SwingConstants.VERTICAL : SwingConstants.HORIZONTAL, minimum, maximum,
                         start),
             left, top, width, height);
    }

    private Regler(JSlider slider, double left, double top, double width, double height) {
        super(slider, slider, left, top, width, height);
        this.slider = slider;
        slider.setOpaque(false);
        slider.addChangeListener(e -> raise("Geaendert"));
    }

    public void setzeBearbeiterGeaendert(String method) {
        setHandler("Geaendert", method);
    }

    @Override
    public String text() {
        return slider.getValue() + "\1" + slider.getMinimum() + "\1" + slider.getMaximum();
    }
}

package sum.komponenten;

import javax.swing.*;

public class Regler extends FokusKomponente<JSlider> {
    public Regler(double left, double top, double width, double height, int start, int minimum, int maximum) {
        super(new JSlider(height > width ? SwingConstants.VERTICAL : SwingConstants.HORIZONTAL, minimum, maximum,
                          start),
              left, top, width, height);
        input.setOpaque(false);
        input.addChangeListener(e -> raise("Geaendert"));
    }

    public Regler(double left, double top, double width, double height, int start, int minimum,
                  int maximum, String clicked) {
        this(left, top, width, height, start, minimum, maximum);
        onClick(input, clicked);
    }

    public void setzeBearbeiterGeaendert(String method) {
        handlers.put("Geaendert", method);
    }

    @Override
    public String text() {
        return input.getValue() + "\1" + input.getMinimum() + "\1" + input.getMaximum();
    }
}

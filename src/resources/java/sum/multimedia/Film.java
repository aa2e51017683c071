package sum.multimedia;

import java.awt.Color;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.RenderingHints;
import java.io.File;
import javax.swing.JComponent;
import sum.intern.Application;

/** A film, shown as its symbol: a screen with the sign for playing and the file's name, behind all components. */
public class Film {
    private static final int WIDTH = 160;
    private static final int HEIGHT = 120;

    public Film(String path) {
        Application.tell("Film", path);
        JComponent symbol = new Symbol(new File(path.replace('\\', '/')).getName());
        symbol.setSize(WIDTH, HEIGHT);
        Application.current().placeBehind(symbol);
    }

    private static final class Symbol extends JComponent {
        private static final Color SCREEN = new Color(0x3c4650);
        private static final Color SIGN = new Color(0xe6eaee);
        private static final int SIGN_SIZE = 40;
        private static final int MARGIN = 8;

        private final String name;

        private Symbol(String name) {
            this.name = name;
        }

        @Override
        protected void paintComponent(Graphics g) {
            Graphics2D painter = (Graphics2D) g.create();
            painter.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
            painter.setColor(SCREEN);
            painter.fillRoundRect(0, 0, getWidth(), getHeight(), MARGIN, MARGIN);
            painter.setColor(SIGN);
            int left = (getWidth() - SIGN_SIZE) / 2;
            int top = (getHeight() - SIGN_SIZE) / 2;
            painter.fillPolygon(new int[] {left, left + SIGN_SIZE, left}, new int[] {top, top + SIGN_SIZE / 2, top + SIGN_SIZE},
                                3);
            painter.drawString(name, MARGIN, getHeight() - MARGIN);
            painter.dispose();
        }
    }
}

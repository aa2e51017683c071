package sum.komponenten;

import javax.swing.*;
import sum.intern.Application;

/** A menu of the menu bar, or a submenu when another menu made it. */
public class Menue {
    private final JMenu menu;

    public Menue(String text) {
        menu = new JMenu(text);
        Application.current().menuBar.add(menu);
        Application.current().menuBar.revalidate();
    }

    private Menue(JMenu parent, String text) {
        menu = new JMenu(text);
        parent.add(menu);
    }

    public void haengeZeileAn(String text, String method) {
        JMenuItem item = new JMenuItem(text);
        item.addActionListener(e -> Application.current().call(method));
        menu.add(item);
    }

    public void haengeTrennungAn() {
        menu.addSeparator();
    }

    public Menue neuesUntermenue(String text) {
        return new Menue(menu, text);
    }
}

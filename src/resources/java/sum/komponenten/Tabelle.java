package sum.komponenten;

import javax.swing.*;

public class Tabelle extends FokusKomponente<JTable> {
    public Tabelle(double left, double top, double width, double height, int rows, int columns) {
        this(new JTable(rows, columns), left, top, width, height);
    }

    public Tabelle(double left, double top, double width, double height, int rows, int columns, String clicked) {
        this(left, top, width, height, rows, columns);
        onClick(input, clicked);
    }

    private Tabelle(JTable table, double left, double top, double width, double height) {
        super(new JScrollPane(table, JScrollPane.VERTICAL_SCROLLBAR_ALWAYS, JScrollPane.HORIZONTAL_SCROLLBAR_ALWAYS),
              table, left, top, width, height);
        input.getModel().addTableModelListener(e -> raise("InhaltGeaendert"));
        input.getSelectionModel().addListSelectionListener(e -> {
            if (!e.getValueIsAdjusting()) {
                raise("MarkierungGeaendert");
            }
        });
    }

    /** Columns count from 1. */
    public void setzeSpaltentitelAn(String title, int column) {
        input.getColumnModel().getColumn(column - 1).setHeaderValue(title);
        input.getTableHeader().repaint();
    }

    public void setzeBearbeiterInhaltGeaendert(String method) {
        handlers.put("InhaltGeaendert", method);
    }

    public void setzeBearbeiterMarkierungGeaendert(String method) {
        handlers.put("MarkierungGeaendert", method);
    }

    @Override
    public String text() {
        StringBuilder text = new StringBuilder().append(input.getRowCount());
        for (int i = 0; i < input.getColumnCount(); i++) {
            text.append('\1').append(input.getColumnModel().getColumn(i).getHeaderValue());
        }
        return text.toString();
    }
}

package sum.komponenten;

import javax.swing.JScrollPane;
import javax.swing.JTable;

public class Tabelle extends FokusKomponente {
    private final JTable table;

    public Tabelle(double left, double top, double width, double height, int rows, int columns) {
        this(new JTable(rows, columns), left, top, width, height);
    }

    private Tabelle(JTable table, double left, double top, double width, double height) {
        super(new JScrollPane(table, JScrollPane.VERTICAL_SCROLLBAR_ALWAYS, JScrollPane.HORIZONTAL_SCROLLBAR_ALWAYS),
              table, left, top, width, height);
        this.table = table;
        table.getModel().addTableModelListener(e -> raise("InhaltGeaendert"));
        table.getSelectionModel().addListSelectionListener(e -> {
            if (!e.getValueIsAdjusting()) {
                raise("MarkierungGeaendert");
            }
        });
    }

    /** Columns count from 1. */
    public void setzeSpaltentitelAn(String title, int column) {
        table.getColumnModel().getColumn(column - 1).setHeaderValue(title);
        table.getTableHeader().repaint();
    }

    public void setzeBearbeiterInhaltGeaendert(String method) {
        setHandler("InhaltGeaendert", method);
    }

    public void setzeBearbeiterMarkierungGeaendert(String method) {
        setHandler("MarkierungGeaendert", method);
    }

    @Override
    public String text() {
        StringBuilder text = new StringBuilder().append(table.getRowCount());
        for (int i = 0; i < table.getColumnCount(); i++) {
            text.append('\1').append(table.getColumnModel().getColumn(i).getHeaderValue());
        }
        return text.toString();
    }
}

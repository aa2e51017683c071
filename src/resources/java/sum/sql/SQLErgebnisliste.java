package sum.sql;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/** The rows that a query gave; empty when it gave none. */
public class SQLErgebnisliste {
    private final List<String[]> rows;

    public SQLErgebnisliste() {
        this(Collections.emptyList());
    }

    SQLErgebnisliste(List<String[]> rows) {
        this.rows = new ArrayList<>(rows);
    }

    public int zeilenAnzahl() {
        return rows.size();
    }
}

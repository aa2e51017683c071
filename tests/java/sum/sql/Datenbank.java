package sum.sql;

import sum.intern.Application;

/** A database that always answers, and with nothing: calls are reported instead of sent anywhere. */
public class Datenbank {
    /** Returns the empty literal itself, because generated programs compare the result by reference. */
    public String verbindeMySQL(String database, String server, String user, String password) {
        Application.print("Datenbank", "verbindeMySQL", database, server, user, password);
        return "";
    }

    public void sendeSQL(String query) {
        Application.print("Datenbank", "sendeSQL", query);
    }

    public SQLErgebnisliste ergebnis() {
        return new SQLErgebnisliste();
    }

    public int tabellenAnzahl() {
        return 0;
    }

    public String tabellenName(int index) {
        return "";
    }
}

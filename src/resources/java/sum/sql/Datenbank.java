package sum.sql;

import java.sql.Connection;
import java.sql.Driver;
import java.sql.DriverManager;
import java.sql.ResultSet;
import java.sql.SQLException;
import java.sql.Statement;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Properties;
import java.util.ServiceLoader;
import sum.intern.Application;

/** A connection to a MySQL or MariaDB server over whichever JDBC driver lies beside the program. */
public class Datenbank {
    private static final String[] SCHEMES = {"jdbc:mariadb://", "jdbc:mysql://"};
    private static final int LONGEST_WAIT_SECONDS = 10;

    private Connection connection;
    private List<String[]> rows = new ArrayList<>();
    private List<String> tables = new ArrayList<>();

    /**
     * Says what went wrong, in one line. On success it gives back the empty literal itself, because generated programs
     * compare the answer by reference.
     */
    public String verbindeMySQL(String database, String server, String user, String password) {
        Application.tell("Datenbank", "verbindeMySQL", database, server, user, password);
        try {
            close();
            connection = connect(server + "/" + database, user, password);
            tables = readTables();
            return "";
        } catch (SQLException e) {
            return "Keine Verbindung zur Datenbank »" + database + "« auf »" + server + "«: " + e.getMessage();
        }
    }

    /** Sends a query, and keeps the rows that it gives until the next one. */
    public void sendeSQL(String query) {
        Application.tell("Datenbank", "sendeSQL", query);
        rows = new ArrayList<>();
        if (connection == null) {
            return;
        }
        try (Statement statement = connection.createStatement()) {
            if (statement.execute(query)) {
                rows = read(statement.getResultSet());
            }
        } catch (SQLException e) {
            Application.complain("Die Datenbank lehnt »" + query + "« ab: " + e.getMessage());
        }
    }

    public SQLErgebnisliste ergebnis() {
        return new SQLErgebnisliste(rows);
    }

    public int tabellenAnzahl() {
        return tables.size();
    }

    /** Tables count from 1, in the order of their names; there is no name for any other number. */
    public String tabellenName(int index) {
        return index >= 1 && index <= tables.size() ? tables.get(index - 1) : "";
    }

    private void close() throws SQLException {
        tables = new ArrayList<>();
        if (connection != null) {
            connection.close();
        }
        connection = null;
    }

    private static Connection connect(String target, String user, String password) throws SQLException {
        Properties account = new Properties();
        account.setProperty("user", user);
        account.setProperty("password", password);
        DriverManager.setLoginTimeout(LONGEST_WAIT_SECONDS);
        for (Driver driver : drivers()) {
            for (String scheme : SCHEMES) {
                Connection made = driver.acceptsURL(scheme + target) ? driver.connect(scheme + target, account) : null;
                if (made != null) {
                    return made;
                }
            }
        }
        throw new SQLException("Es ist kein JDBC-Treiber für MySQL oder MariaDB da.");
    }

    /** Those of the program's own class path come beside those that are registered already. */
    private static List<Driver> drivers() {
        List<Driver> found = new ArrayList<>(Collections.list(DriverManager.getDrivers()));
        for (Driver driver : ServiceLoader.load(Driver.class)) {
            found.add(driver);
        }
        return found;
    }

    private List<String> readTables() throws SQLException {
        List<String> names = new ArrayList<>();
        try (Statement statement = connection.createStatement()) {
            for (String[] row : read(statement.executeQuery("SHOW TABLES"))) {
                names.add(row[0]);
            }
        }
        return names;
    }

    private static List<String[]> read(ResultSet result) throws SQLException {
        List<String[]> rows = new ArrayList<>();
        int columns = result.getMetaData().getColumnCount();
        while (result.next()) {
            String[] row = new String[columns];
            for (int i = 0; i < columns; i++) {
                row[i] = result.getString(i + 1);
            }
            rows.add(row);
        }
        return rows;
    }
}

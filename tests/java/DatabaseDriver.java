import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.sql.Connection;
import java.sql.DriverManager;
import java.sql.ResultSet;
import java.sql.Statement;

/**
 * Talks to a database server in the test's name, or lets a generated program do so and prints what its query methods
 * answer. Arguments: "run" FILE ADDRESS USER PASSWORD for the statements of a file, one a line, after which it prints
 * the first column of every row that they give; or "ask", for the program.
 */
public final class DatabaseDriver {
    private DatabaseDriver() {
    }

    public static void main(String[] arguments) throws Exception {
        if (arguments[0].equals("ask")) {
            ask();
            System.exit(0); // its window is open
        }
        try (Connection connection = DriverManager.getConnection(arguments[2], arguments[3], arguments[4]);
             Statement statement = connection.createStatement()) {
            for (String line : Files.readAllLines(Path.of(arguments[1]), StandardCharsets.UTF_8)) {
                if (!statement.execute(line)) {
                    continue;
                }
                try (ResultSet rows = statement.getResultSet()) {
                    while (rows.next()) {
                        System.out.println(rows.getString(1));
                    }
                }
            }
        }
    }

    private static void ask() throws Exception {
        Class<?> program = Class.forName("SuMAnwendung");
        Object window = program.getConstructor().newInstance();
        boolean connected = (Boolean) program.getMethod("VerbindeMitDatenbank").invoke(window);
        System.out.println("connected " + connected);
        if (!connected) {
            return;
        }
        int tables = (Integer) program.getMethod("AnzahlDerTabellen").invoke(window);
        System.out.println("tables " + tables);
        for (int index = 1; index <= tables; index++) {
            System.out.println("table " + program.getMethod("NameDerTabelle", int.class).invoke(window, index));
        }
        System.out.println("entries " + program.getMethod("AnzahlDerEintraege").invoke(window));
    }
}

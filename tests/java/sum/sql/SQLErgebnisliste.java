package sum.sql;

public class SQLErgebnisliste {
    public int zeilenAnzahl() {
        return 0;
    }
}

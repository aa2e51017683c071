public class SuMAnwendung extends EBAnwendung {
    private static final int BREITE = 600, HOEHE = BREITE * 3 / 4;
    static final double RAND = 10.5;
    static int zeile = 20;      // ändert sich nie
    private int y = 10;         // ändert sich
    Etikett a, b, c, d, e, f, g, h, i;
    public SuMAnwendung() {
        super(100, 50, BREITE, HOEHE);
        a = new Etikett(2 * RAND, -(3 + 4) * 2, 0x10, 1_0, "a");
        b = new Etikett(10.0, 100 % 30 + zeile, (int) 7.9, 7 / 2, "b");
        c = new Etikett(SuMAnwendung.zeile, this.zeile * 2, 20d, 2.5, "c");
        y = y + 30;
        d = new Etikett(10, y, 100, 20, "d");
        e = new Etikett(zufall(), 10, 100, 20, "e");
        f = new Etikett(10, 40000, 100, 20, "f");
        g = new Etikett(1 / 0, 10, 100, 20, "g");
        h = new Etikett(10, 10, 100, 20, "Wert: " + y);
        h.setzeSchriftgroesse(y);
        i = new Etikett(10, 10, 100);
        Etikett a = new Etikett(1, 2, 3, 4, "zweites a");
        Tabelle wort = new Tabelle(10, 10, 100, 100, y, 3);
        wort.setzeSpaltentitelAn("vier", 4);
        Etikett größe = new Etikett(1, 1, 1, 1, ""), ωmega = new Etikett(2, 2, 2, 2, "");
    }
}

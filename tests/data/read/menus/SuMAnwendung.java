public class SuMAnwendung extends EBAnwendung
{
    Menue datei, hilfe, unter, zuletzt;
    Datenbank db; SQLErgebnisliste liste;

    public SuMAnwendung()
    {
        super(640, 480);
        datei = new Menue("Datei");
        datei.haengeZeileAn("Öffnen ...", "dateiOeffnen");
        datei.haengeTrennungAn();
        unter = datei.neuesUntermenue("Export");
        unter.haengeZeileAn("Als Bild", "dateiAlsBild");
        zuletzt = unter.neuesUntermenue("Tief");
        zuletzt.haengeZeileAn("Grund", "tiefGrund");
        datei.haengeZeileAn("Beenden", "ende");
        datei.neuesUntermenue("Druck").haengeZeileAn("PDF", "dateiPDF");
        hilfe = new Menue(titel);
        hilfe.haengeZeileAn(titel, "hilfeTitel");
        hilfe.haengeBildAn("x");
        db = new Datenbank();
        if (verbinde())
        {
            db.sendeSQL("SELECT * FROM schueler ORDER BY name");
            db.sendeSQL("DELETE FROM alt");
        }
    }

    boolean verbinde()
    {
        return db.verbindeMySQL("schule", "localhost", "gast", kennwort()) == "";
    }

    public int AnzahlDerTabellen() { return db.tabellenAnzahl(); }
    public String NameDerTabelle() { return ""; }
    public void suche() { db.sendeSQL("SELECT * FROM andere"); }
}

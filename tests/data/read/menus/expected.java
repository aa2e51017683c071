import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
import sum.sql.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Menue hatMenueTemp;
    Menue datei;
    Menue hilfe;
    Datenbank hatDatenbank;
    SQLErgebnisliste hatErgebnisliste;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        datei = new Menue("Datei");
        datei.haengeZeileAn("Öffnen ...", "dateiOeffnen");
        datei.haengeTrennungAn();
        hatMenueTemp = datei.neuesUntermenue("Export");
        hatMenueTemp.haengeZeileAn("Als Bild", "dateiAlsBild");
        hatMenueTemp = .neuesUntermenue("Tief");
        hatMenueTemp.haengeZeileAn("Grund", "Grund");
        datei.haengeZeileAn("Beenden", "dateiBeenden");
        hatMenueTemp = datei.neuesUntermenue("Druck");
        hatMenueTemp.haengeZeileAn("PDF", "dateiPDF");
        hilfe = new Menue("");
        hatDatenbank = new Datenbank();
        hatErgebnisliste = null;

        if (VerbindeMitDatenbank())
        {
            hatDatenbank.sendeSQL("SELECT * FROM schueler ORDER BY name");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }
    }

    public void dateiOeffnen()
    {

    }

    public void dateiAlsBild()
    {

    }

    public void Grund()
    {

    }

    public void dateiBeenden()
    {

    }

    public void dateiPDF()
    {

    }

    public boolean VerbindeMitDatenbank()
    {
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("schule", "localhost", "gast", "");
        if(lFehler != "")
            System.out.println(lFehler);
        return lFehler == "";
    }

    public int AnzahlDerTabellen()
    {
        return hatDatenbank.tabellenAnzahl();
    }

}
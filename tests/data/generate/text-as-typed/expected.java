import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
import sum.sql.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatÄ;
    Knopf ;
    Knopf class;
    Bild hatBild1;
    Menue hatMenueTemp;
    Menue hat"x";
    Datenbank hatDatenbank;
    SQLErgebnisliste hatErgebnisliste;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(320, 240);
        hatÄ = new Etikett(0, 0, 1, 1, "Er sagte "ja" \ 5 € ");
         = new Knopf(0, 0, 1, 1, "");
        class = new Knopf(0, 0, 1, 1, "	");
        hatBild1 = new Bild(0, 0, 1, 1, "a"b\\");
        hat"x" = new Menue(""Datei"");
        hat"x".haengeZeileAn("Größe-Ändern #2", "hat"x"GroesseAendern2");
        hat"x".haengeZeileAn("Speichern (neu)", "hat"x"Speichern(neu)");
        hat"x".haengeZeileAn("Öffnen ...", "hat"x"Oeffnen");
        hat"x".haengeZeileAn("a\b", "hat"x"ab");
        hat"x".haengeTrennungAn();
        hatDatenbank = new Datenbank();
        hatErgebnisliste = null;

        if (VerbindeMitDatenbank())
        {
            hatDatenbank.sendeSQL("SELECT * FROM x"");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }
    }

    public void hat"x"GroesseAendern2()
    {

    }

    public void hat"x"Speichern(neu)()
    {

    }

    public void hat"x"Oeffnen()
    {

    }

    public void hat"x"ab()
    {

    }

    public boolean VerbindeMitDatenbank()
    {
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("ö", """, """, "\");
        if(lFehler != "")
            System.out.println(lFehler);
        return lFehler == "";
    }

    public int AnzahlDerTabellen()
    {
        return hatDatenbank.tabellenAnzahl();
    }

    public int AnzahlDerEintraege()
    {
        return hatErgebnisliste.zeilenAnzahl();
    }

}
import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
import sum.sql.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Datenbank hatDatenbank;
    SQLErgebnisliste hatErgebnisliste;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatDatenbank = new Datenbank();
        hatErgebnisliste = null;

        if (VerbindeMitDatenbank())
        {
            hatDatenbank.sendeSQL("SELECT * FROM t");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }
    }

    public boolean VerbindeMitDatenbank()
    {
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("d", "s", "u", "p");
        if(lFehler != "")
            System.out.println(lFehler);
        return lFehler == "";
    }

    public String NameDerTabelle(int pIndex)
    {
        return hatDatenbank.tabellenName(pIndex);
    }

    public int AnzahlDerEintraege()
    {
        return hatErgebnisliste.zeilenAnzahl();
    }

}
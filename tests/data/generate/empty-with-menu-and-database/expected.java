import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Menue hatMenueTemp;
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
            hatDatenbank.sendeSQL("SELECT * FROM ");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }
    }

    public boolean VerbindeMitDatenbank()
    {
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("", "", "", "");
        if(lFehler != "")
            System.out.println(lFehler);
        return lFehler == "";
    }

}
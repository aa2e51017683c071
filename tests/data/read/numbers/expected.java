import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett a;
    Etikett b;
    Etikett c;
    Etikett h;
    Etikett a2;
    Etikett größe;
    Etikett _mega;
    Tabelle wort;
    Menue hatMenueTemp;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(600, 450);
        a = new Etikett(21, -14, 16, 10, "a");
        b = new Etikett(10, 30, 7, 3, "b");
        c = new Etikett(20, 40, 20, 2, "c");
        h = new Etikett(10, 10, 100, 20, "");
        a2 = new Etikett(1, 2, 3, 4, "zweites a");
        größe = new Etikett(1, 1, 1, 1, "");
        _mega = new Etikett(2, 2, 2, 2, "");
        wort = new Tabelle(10, 10, 100, 100, 5, 3);
        wort.setzeSpaltentitelAn("", 1);
        wort.setzeSpaltentitelAn("", 2);
        wort.setzeSpaltentitelAn("", 3);
    }

}
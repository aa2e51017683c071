import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Knopf hatA;
    Knopf hatB;
    Knopf hatC;
    Knopf hatD;
    Knopf int2;
    Menue hatMenueTemp;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatA = new Knopf(10, 10, 80, 25, "Knopf");
        hatB = new Knopf(10, 40, 80, 25, "B");
        hatC = new Knopf(10, 70, 80, 25, "C");
        hatC.setzeBearbeiterGeklickt("hatCGeklickt");
        hatD = new Knopf(10, 100, 80, 25, "Ä €");
        int2 = new Knopf(1, 1, 1, 1, "");
    }

    public void hatCGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

}
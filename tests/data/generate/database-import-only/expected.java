import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
import sum.sql.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
    }

}
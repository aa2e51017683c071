package pirol_run;

import java.awt.EventQueue;
import java.io.File;
import java.io.IOException;
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.net.URL;
import java.util.List;
import java.util.Map;
import sum.intern.Application;

/** Does beforehand what every test does, with a program that holds a component of each kind and that nobody sees. */
final class Rehearsal {
    /** So often the compiler's own code has mostly been compiled, too. */
    private static final int COMPILATIONS = 8;
    private static final String[] FIELDS = {"Etikett e", "Knopf k", "Textfeld t", "Kennwortfeld w", "Schalter s", "Auswahl a",
        "Regler r", "Fortschrittsbalken f", "Tabelle l", "Zeichenbereich z", "Zeilenbereich y", "Radiogruppe g", "Radioknopf o",
        "Menue m"};
    private static final String[] STATEMENTS = {"e = new Etikett(20, 20, 300, 30, \"a\")", "e.setzeSchriftgroesse(20)",
        "e.setzeAusrichtung(1)", "k = new Knopf(70, 100, 150, 30, \"b\")", "k.setzeBearbeiterGeklickt(\"c1\")",
        "t = new Textfeld(140, 60, 200, 25, \"d\")", "t.setzeBearbeiterInhaltGeaendert(\"c2\")",
        "w = new Kennwortfeld(40, 60, 150, 25, '*')", "s = new Schalter(20, 37, 200, 20, \"f\")", "s.schalteAn()",
        "a = new Auswahl(42, 60, 200, 25)", "a.haengeAn(\"g\")", "r = new Regler(43, 75, 190, 40, 70, 0, 100)",
        "f = new Fortschrittsbalken(20, 30, 60, 20, 0, 300)", "l = new Tabelle(20, 60, 400, 200, 3, 3)",
        "l.setzeSpaltentitelAn(\"h\", 1)", "z = new Zeichenbereich(44, 60, 180, 200, \"i\")",
        "y = new Zeilenbereich(20, 40, 600, 60, \"j\")", "g = new Radiogruppe()", "o = new Radioknopf(40, 80, 200, 20, \"k\")",
        "g.fuegeEin(o)", "m = new Menue(\"l\")", "m.haengeZeileAn(\"n\", \"c3\")"};
    private static final int HANDLERS = 20;

    private Rehearsal() {
    }

    private static String source() {
        StringBuilder text = new StringBuilder("import sum.ereignis.*;\nimport sum.komponenten.*;\nimport sum.multimedia.*;\n")
            .append("public class SuMAnwendung extends EBAnwendung\n{\n");
        for (String field : FIELDS) {
            text.append(field).append(";\n");
        }
        text.append("public SuMAnwendung()\n{\nsuper(640, 480);\n");
        for (String statement : STATEMENTS) {
            text.append(statement).append(";\n");
        }
        text.append("}\n");
        for (int i = 0; i < HANDLERS; i++) {
            text.append("public void c").append(i).append("()\n{ pirol_run.Report.called(\"c\");\n// Text\n}\n");
        }
        return text.append("}\n").toString();
    }

    /** Once for all that is loaded then, and more often for speed. The class path is that of the substitute classes. */
    static void run(List<File> classPath) throws IOException, InterruptedException, InvocationTargetException {
        Map<String, byte[]> classes = null;
        for (int i = 0; i < COMPILATIONS; i++) {
            classes = MemoryCompiler.compile(source(), classPath, false);
        }
        if (classes != null) {
            try (ProgramLoader loader = new ProgramLoader(classes, new URL[0], false)) {
                Class<?> program = loader.loadClass("SuMAnwendung");
                EventQueue.invokeAndWait(() -> Application.rehearse(() -> create(program)));
                EventQueue.invokeAndWait(() -> Application.rehearse(() -> create(program)));
            } catch (ClassNotFoundException e) {
                throw new IllegalStateException(e);
            }
        }
        // What has been left shall not be cleared away while somebody waits for his window.
        System.gc();
    }

    private static void create(Class<?> program) {
        try {
            Constructor<?> constructor = program.getConstructor();
            constructor.newInstance();
        } catch (ReflectiveOperationException e) {
            throw new IllegalStateException(e);
        }
    }
}

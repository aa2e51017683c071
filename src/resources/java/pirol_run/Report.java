package pirol_run;

import java.io.ByteArrayOutputStream;
import java.io.FileDescriptor;
import java.io.FileOutputStream;
import java.io.IOException;
import java.io.OutputStream;
import java.io.PrintStream;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.nio.charset.StandardCharsets;

/**
 * What the program does, told to Pirol over the standard output: lines of the character with code 1, a letter and the
 * fields, which are separated by tabs. In fields a backslash, a tab and the ends of lines are escaped. Lines that begin
 * otherwise come from the virtual machine itself.
 */
public final class Report {
    private static final char MARK = '\1';
    private static final int LONGEST_PIECE = 8192;
    private static final OutputStream OUT = new FileOutputStream(FileDescriptor.out);
    private static final String SOURCE = "SuMAnwendung.java";

    private Report() {
    }

    /** The program has begun to run a method that an event calls. */
    public static void called(String handler) {
        send('H', handler);
    }

    static void send(char letter, String... fields) {
        StringBuilder line = new StringBuilder().append(MARK).append(letter);
        for (int i = 0; i < fields.length; i++) {
            if (i > 0) {
                line.append('\t');
            }
            escape(line, fields[i]);
        }
        send(line.append('\n').toString().getBytes(StandardCharsets.UTF_8));
    }

    private static void escape(StringBuilder out, String field) {
        for (int i = 0; i < field.length(); i++) {
            char c = field.charAt(i);
            int code = "\\\t\n\r".indexOf(c);
            if (code < 0) {
                out.append(c);
            } else {
                out.append('\\').append("\\tnr".charAt(code));
            }
        }
    }

    private static synchronized void send(byte[] line) {
        try {
            OUT.write(line);
        } catch (IOException e) {
            // Nobody reads any more: Pirol is gone.
            Runtime.getRuntime().halt(1);
        }
    }

    /** Tells of something thrown: its class, the line of the program where it happened (0 for none), message, trace. */
    static void thrown(Throwable thrown) {
        StringWriter trace = new StringWriter();
        thrown.printStackTrace(new PrintWriter(trace));
        send('E', thrown.getClass().getName(), String.valueOf(lineOf(thrown)), String.valueOf(thrown.getMessage()),
             trace.toString());
    }

    private static int lineOf(Throwable thrown) {
        for (Throwable cause = thrown; cause != null; cause = cause.getCause()) {
            for (StackTraceElement element : cause.getStackTrace()) {
                if (SOURCE.equals(element.getFileName())) {
                    return element.getLineNumber();
                }
            }
        }
        return 0;
    }

    /** A stream for what the program prints; each piece goes out at once. */
    static PrintStream stream(char letter) throws IOException {
        return new PrintStream(new Pieces(letter), true, "UTF-8");
    }

    /** Sends bytes in pieces, which end with a line or stay open. */
    private static final class Pieces extends OutputStream {
        private final char whole;
        private final char open;

        Pieces(char letter) {
            whole = Character.toUpperCase(letter);
            open = Character.toLowerCase(letter);
        }

        @Override
        public void write(int b) {
            write(new byte[] {(byte) b}, 0, 1);
        }

        @Override
        public void write(byte[] bytes, int offset, int length) {
            ByteArrayOutputStream line = new ByteArrayOutputStream(length + 8);
            boolean begun = false;
            for (int i = offset; i < offset + length; i++) {
                if (!begun) {
                    line.write(MARK);
                    line.write(open);
                    begun = true;
                }
                byte b = bytes[i];
                boolean ends = b == '\n' || line.size() >= LONGEST_PIECE && (i + 1 == offset + length || (bytes[i + 1] & 0xC0) != 0x80);
                if (b == '\\' || b == '\t' || b == '\r') {
                    line.write('\\');
                    line.write(b == '\\' ? '\\' : b == '\t' ? 't' : 'r');
                } else if (b != '\n') {
                    line.write(b);
                }
                if (ends) {
                    flush(line, b == '\n');
                    begun = false;
                }
            }
            if (begun) {
                flush(line, false);
            }
        }

        private void flush(ByteArrayOutputStream line, boolean ended) {
            byte[] bytes = line.toByteArray();
            line.reset();
            bytes[1] = (byte) (ended ? whole : open);
            byte[] sent = java.util.Arrays.copyOf(bytes, bytes.length + 1);
            sent[bytes.length] = '\n';
            send(sent);
        }
    }
}

package pirol_run;

import java.net.URL;
import java.net.URLClassLoader;
import java.util.Map;

/** Finds the compiled program, and the archives beside it. The library comes from there when it is there. */
final class ProgramLoader extends URLClassLoader {
    private static final String LIBRARY = "sum.";

    private final Map<String, byte[]> classes;
    private final boolean hasLibrary;

    ProgramLoader(Map<String, byte[]> classes, URL[] archives, boolean hasLibrary) {
        super(archives, ProgramLoader.class.getClassLoader());
        this.classes = classes;
        this.hasLibrary = hasLibrary;
    }

    /** The substitute classes, which the parent holds, are not mixed with those of the library. */
    @Override
    protected Class<?> loadClass(String name, boolean resolve) throws ClassNotFoundException {
        if (!hasLibrary || !name.startsWith(LIBRARY)) {
            return super.loadClass(name, resolve);
        }
        synchronized (getClassLoadingLock(name)) {
            Class<?> loaded = findLoadedClass(name);
            return loaded != null ? loaded : findClass(name);
        }
    }

    @Override
    protected Class<?> findClass(String name) throws ClassNotFoundException {
        byte[] bytes = classes.get(name);
        return bytes == null ? super.findClass(name) : defineClass(name, bytes, 0, bytes.length);
    }
}

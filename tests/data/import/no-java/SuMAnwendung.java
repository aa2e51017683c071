Dies ist kein Java.
Sondern ein Brief.
/** Handwritten signatures from signature pads. Start with {@link com.korvane.signpad.Pad}. */
module com.korvane.signpad {
    requires transitive com.sun.jna;
    requires transitive java.desktop;

    exports com.korvane.signpad;
}

// Generated from the header by bindings/generate, not to be edited.
package com.korvane.signpad;

/** The pad models. */
public enum Model {
    /** With a screen, live images and an office canvas. */
    S210(LowLevel.DeviceType.S210, "KVS210"),
    /** With a screen. */
    S300(LowLevel.DeviceType.S300, "KVS300"),
    /** With a screen and a fingerprint sensor. */
    S310X(LowLevel.DeviceType.S310X, "KVS310X"),
    /** Without a screen of its own. */
    R800(LowLevel.DeviceType.R800, "KVR800"),
    /** Without a screen of its own. */
    M450(LowLevel.DeviceType.M450, "KVM450");

    final int deviceType;
    final String prefix;

    Model(int deviceType, String prefix) {
        this.deviceType = deviceType;
        this.prefix = prefix;
    }
}

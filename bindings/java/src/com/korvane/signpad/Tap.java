package com.korvane.signpad;

/** A tap on the pad's buttons. */
public enum Tap {
    /** The signer wants to begin anew, or not to sign. */
    CANCEL,
    /** The signer is done. */
    CONFIRM
}

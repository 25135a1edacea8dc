/** Handwritten signatures from signature pads. Start with {@link com.korvane.signpad.Pad}. */
package com.korvane.signpad;

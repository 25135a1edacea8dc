package com.korvane.signpad;

/** Formats of pictures. */
public enum ImageKind {
    /** Without loss, large. */
    BMP(LowLevel.EncodedImageType.BITMAP),
    /** With some loss. */
    JPEG(LowLevel.EncodedImageType.JPEG),
    /** Without loss; white is see-through unless one says otherwise. */
    PNG(LowLevel.EncodedImageType.PNG);

    final int code;

    ImageKind(int code) {
        this.code = code;
    }
}

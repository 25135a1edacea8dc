package com.korvane.signpad;

import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.BasicFileAttributes;
import java.util.Locale;
import java.util.Map;

/** A file that the library is to write, and whether it did. */
final class SavedFile {
    private static final Map<String, Integer> TYPES = Map.of(
            "bmp", LowLevel.ImageType.BITMAP,
            "jpg", LowLevel.ImageType.JPEG,
            "jpeg", LowLevel.ImageType.JPEG,
            "png", LowLevel.ImageType.PNG,
            "pdf", LowLevel.ImageType.PDF,
            "svg", LowLevel.ImageType.SVG);

    private final Path file;
    private final int dpi;
    private final int type;
    private final String before;

    SavedFile(Path file, int dpi) {
        this.file = file.toAbsolutePath();
        this.dpi = dpi;
        String name = file.toString();
        Integer known = TYPES.get(name.substring(name.lastIndexOf('.') + 1).toLowerCase(Locale.ROOT));
        if (known == null || name.lastIndexOf('.') < 0) {
            throw new IllegalArgumentException(file + ": its name ends in .png, .jpg, .bmp, .pdf or .svg");
        }
        if (dpi != 150 && dpi != 300) {
            throw new IllegalArgumentException("files have 150 or 300 dots per inch, not " + dpi);
        }
        type = known;
        before = identity();
    }

    int type() {
        return type;
    }

    int level() {
        return dpi == 150 ? LowLevel.DpiLevel.DPI_150 : LowLevel.DpiLevel.DPI_300;
    }

    /** As the library takes a path: one code point in four bytes, and a closing zero. */
    byte[] name() {
        return (file + "\0").getBytes(Charset.forName("UTF-32LE"));
    }

    /** The library does not notice an SVG that could not be written: looks for its end. */
    boolean isWhole() {
        if (type != LowLevel.ImageType.SVG) {
            return true;
        }
        if (identity().isEmpty() || identity().equals(before)) {
            return false;
        }
        try (RandomAccessFile written = new RandomAccessFile(file.toFile(), "r")) {
            byte[] end = new byte[(int) Math.min(16, written.length())];
            written.seek(written.length() - end.length);
            written.readFully(end);
            return new String(end, StandardCharsets.ISO_8859_1).stripTrailing().endsWith("</svg>");
        } catch (IOException error) {
            return false;
        }
    }

    /** What changes of a file when it is written; empty when there is none. */
    private String identity() {
        try {
            BasicFileAttributes found = Files.readAttributes(file, BasicFileAttributes.class);
            return found.fileKey() + " " + found.size() + " " + found.lastModifiedTime();
        } catch (IOException error) {
            return "";
        }
    }
}

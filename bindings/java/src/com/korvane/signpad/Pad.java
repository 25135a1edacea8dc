package com.korvane.signpad;

import com.sun.jna.Memory;
import java.awt.Color;
import java.awt.Dimension;
import java.awt.Rectangle;
import java.awt.image.BufferedImage;
import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import java.time.Duration;
import java.util.Base64;
import java.util.Objects;
import java.util.Optional;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.Executor;
import java.util.function.Consumer;
import java.util.function.Supplier;
import javax.imageio.ImageIO;

/**
 * One open signature pad: the canvas that the pen writes on, and the ink on it.
 *
 * <p>One pad is open at a time in a process. It may be used from any thread; its functions run on a thread of their own.
 * Whatever goes wrong is a {@link PadException} that says what to do, or an {@link IllegalArgumentException}.
 *
 * <pre>{@code
 * try (Pad pad = Pad.open(Model.S300, 800, 452)) {
 *     if (pad.await(Duration.ofMinutes(1)).equals(Optional.of(Tap.CONFIRM))) {
 *         pad.save(Path.of("signature.pdf"), 300);
 *     }
 * }
 * }</pre>
 */
public final class Pad implements AutoCloseable {
    private final Model model;
    private final Family family;
    private final int width;
    private final int height;
    private final Receivers receivers = new Receivers();
    private final PadWatch watch = new PadWatch(this);
    private volatile boolean closed;
    private ImageKind liveKind;

    private Pad(Model model, int width, int height) {
        this.model = Objects.requireNonNull(model);
        this.width = width;
        this.height = height;
        family = new Family(model);
    }

    /**
     * Opens a pad with the driver of the working directory.
     *
     * @param model which
     * @param width of the canvas, in pixels
     * @param height of the canvas, in pixels
     * @return the open pad
     */
    public static Pad open(Model model, int width, int height) {
        return open(model, width, height, null);
    }

    /**
     * Opens a pad. The process's working directory is the driver's while that lasts, and is put back.
     *
     * @param model which
     * @param width of the canvas, in pixels
     * @param height of the canvas, in pixels
     * @param driver the folder of libkvsignpaddrv.so; null: the working directory
     * @return the open pad
     */
    public static Pad open(Model model, int width, int height, Path driver) {
        if (width < 1 || height < 1) {
            throw new IllegalArgumentException("a canvas has at least one pixel, not " + width + " x " + height);
        }
        Pad pad = new Pad(model, width, height);
        OpenPad.claim(pad);
        try {
            PadThread.run(() -> OpenPad.inDirectory(driver, () -> pad.begin(driver)));
        } catch (RuntimeException | Error error) {
            pad.close();
            throw error;
        }
        return pad;
    }

    private Void begin(Path driver) {
        if (!family.flag("InitialDevice", null, 0, 0, width, height)) {
            throw OpenPad.whyNot(model, driver);
        }
        Receivers.current = receivers;
        family.command("SignPadEventCallback", Receivers.ON_EVENT);
        return null;
    }

    /** Ends the work with the pad; what was written and not taken is gone. Closing twice does nothing. */
    @Override
    public void close() {
        PadThread.run(() -> {
            if (!closed) {
                closed = true;
                family.code("UnInitialDevice");
                if (Receivers.current == receivers) {
                    Receivers.current = null;
                }
            }
        });
        receivers.close();
        watch.close();
        OpenPad.release(this);
    }

    /**
     * Whether it was closed.
     *
     * @return true after {@link #close}
     */
    public boolean isClosed() {
        return closed;
    }

    @Override
    public String toString() {
        return "Pad " + model + " " + width + "x" + height + (closed ? " (closed)" : "");
    }

    // --- The pen ---

    /**
     * Sets the width of strokes to come.
     *
     * @param level 1 to 10; 3 at first
     */
    public void penWidth(int level) {
        if (level < 1 || level > 10) {
            throw new IllegalArgumentException("a pen's width is 1 to 10, not " + level);
        }
        command("SetPenWidth", level);
    }

    /**
     * Sets the colour of strokes to come.
     *
     * @param color its alpha is not looked at
     */
    public void penColor(Color color) {
        command("SetPenColor", color.getRed(), color.getGreen(), color.getBlue());
    }

    /**
     * Sets the colour of strokes to come.
     *
     * @param color "#rrggbb" or a name such as "navy"
     */
    public void penColor(String color) {
        Integer named = LowLevel.COLORS.get(color.toLowerCase(java.util.Locale.ROOT));
        if (named == null && !color.matches("#[0-9a-fA-F]{6}")) {
            throw new IllegalArgumentException(
                    color + " is no colour: write #rrggbb or one of " + LowLevel.COLORS.keySet());
        }
        penColor(new Color(named != null ? named : Integer.parseInt(color.substring(1), 16)));
    }

    /**
     * Whether the width of strokes to come follows the pressure; it does at first.
     *
     * @param on false: a fixed width
     */
    public void penPressure(boolean on) {
        command("SetPenStyle", on);
    }

    /** Empties the canvas, the ink and the pad's own screen, and ends {@link #clip}. */
    public void clear() {
        command("Clear");
    }

    /**
     * Switches the pad's screen on or off (models with one); off also empties the canvas, not the ink.
     *
     * @param on true: on
     */
    public void screen(boolean on) {
        command("OpenLCD", on);
    }

    /**
     * Shows or hides the version on the pad's screen (models with one).
     *
     * @param on true: shows it
     */
    public void showVersion(boolean on) {
        command("DisplayHWVersion", on);
    }

    // --- Taps ---

    /**
     * Waits for the next tap on confirm or cancel. Throws {@link PadException.PadLost} soon after the pad was unplugged.
     *
     * @param time at most so long
     * @return the tap; empty when the time is over or the pad was closed meanwhile
     * @throws InterruptedException when the thread is interrupted
     */
    public Optional<Tap> await(Duration time) throws InterruptedException {
        return watch.next(receivers.taps, time);
    }

    /**
     * The next tap to come. It ends with {@link PadException.PadLost} soon after the pad was unplugged, and with {@link
     * PadException.PadClosed} when it is closed before.
     *
     * @return a new future
     */
    public CompletableFuture<Tap> nextTap() {
        checkOpen();
        CompletableFuture<Tap> future = new CompletableFuture<>();
        onTap(future::complete, Runnable::run);
        watch.failWhenLost(future);
        return future;
    }

    /**
     * Calls the listener for each tap to come. The executor never runs on the driver's thread.
     *
     * @param listener may take its time, and may close the pad
     * @param executor where it runs
     */
    public void onTap(Consumer<Tap> listener, Executor executor) {
        checkOpen();
        receivers.listeners.add(tap -> executor.execute(() -> listener.accept(tap)));
    }

    // --- What it is ---

    /**
     * What the library knows of the pad.
     *
     * @return a new record
     */
    public PadInfo info() {
        return on(() -> {
            try (Memory place = new Memory(64)) {
                return new PadInfo(
                        item(LowLevel.DeviceInfoItem.VENDOR, place).getString(0),
                        item(LowLevel.DeviceInfoItem.PRODUCT, place).getString(0),
                        item(LowLevel.DeviceInfoItem.AXIS_X, place).getInt(4),
                        item(LowLevel.DeviceInfoItem.AXIS_Y, place).getInt(4),
                        item(LowLevel.DeviceInfoItem.PRESSURE, place).getInt(0));
            }
        });
    }

    private Memory item(int item, Memory place) {
        place.clear();
        family.command("GetDeviceInfo", item, place);
        return place;
    }

    /**
     * The pad's own identifier.
     *
     * @return what the pad answers
     */
    public String padId() {
        return on(() -> family.buffer("GetHWPadID"));
    }

    /**
     * The pen's identifier (models with a screen).
     *
     * @return what the pad answers
     */
    public String penId() {
        family.require("GetHWPenID");
        return on(() -> family.buffer("GetHWPenID"));
    }

    /**
     * The pad's version text.
     *
     * @return what the pad answers
     */
    public String version() {
        return on(() -> family.buffer("GetHWVersion"));
    }

    /**
     * Whether the pad answers.
     *
     * @return false when it is unplugged
     */
    public boolean isConnected() {
        try {
            version();
            return true;
        } catch (PadException.CommandFailed error) {
            return false;
        }
    }

    // --- The ink ---

    /**
     * How many points are stored.
     *
     * @return 0 or more
     */
    public int points() {
        return Math.max(0, on(() -> family.code("GetTotalInkPointsNumber")));
    }

    /**
     * All points that are stored now.
     *
     * @return without points when nothing was written
     */
    public Ink ink() {
        byte[] record = decoded("Base64Encode", "Base64EncodeFree", LowLevel.EncodedImageType.INK);
        return new Ink(record == null ? new byte[0] : record);
    }

    // --- Pictures ---

    /**
     * Cuts pictures to come to the ink and these margins; two of 0: the whole canvas.
     *
     * @param across pixels left and right
     * @param down pixels above and below
     */
    public void clip(int across, int down) {
        if (across < 0 || down < 0) {
            throw new IllegalArgumentException("a margin is 0 pixels or more");
        }
        command("SetSaveClipImageMargin", true, across, down);
    }

    /**
     * The signature as a picture's bytes.
     *
     * @param kind the format
     * @param transparent for PNG: white is see-through
     * @return a whole file
     */
    public byte[] picture(ImageKind kind, boolean transparent) {
        return picture("Base64EncodeEx", "Base64EncodeExFree", kind.code, transparent);
    }

    /**
     * The signature as PNG with see-through white.
     *
     * @return a whole file
     */
    public byte[] png() {
        return picture(ImageKind.PNG, true);
    }

    /**
     * The signature as an image, white see-through.
     *
     * @return a new image
     */
    public BufferedImage image() {
        try {
            return ImageIO.read(new ByteArrayInputStream(png()));
        } catch (IOException error) {
            throw new PadException.NotSaved("the picture could not be read: " + error.getMessage());
        }
    }

    /**
     * The signature as SVG, drawn anew from the points. (The library also leaves it in /tmp/KVeSign.svg.)
     *
     * @return the document
     */
    public String svg() {
        return new String(
                picture("GetSVGImageBase64Data", "FreeSVGImageBase64Data"), StandardCharsets.UTF_8);
    }

    /**
     * Writes the signature; the name's ending says how: .png .jpg .bmp .pdf .svg. PNG's white is see-through.
     *
     * @param file an earlier one is as it was when this fails
     * @param dpi 150 or 300 dots per inch
     */
    public void save(Path file, int dpi) {
        SavedFile saved = new SavedFile(file, dpi);
        int result = on(() -> family.code("SaveDrawingImage", saved.type(), saved.name(), saved.level()));
        if (result == LowLevel.ReturnCode.SUCCESS && saved.isWhole()) {
            return;
        }
        if (points() == 0) {
            throw new PadException.NoInk();
        }
        throw new PadException.NotSaved(
                file + " could not be written: is its folder there, may this user write, is the disk full?");
    }

    // --- Live images, office canvas (S210) ---

    /**
     * The next live image of the whole signature (S210). A slow reader gets the newest. Once asked for, the library makes
     * one after every movement as long as the pad is open, and the pad's next packet waits for it.
     *
     * @param kind PNG or JPEG
     * @param time waits at most so long
     * @return a whole file; empty when the time is over or the pad was closed
     * @throws InterruptedException when the thread is interrupted
     */
    public Optional<byte[]> liveImage(ImageKind kind, Duration time) throws InterruptedException {
        family.require("SetRealTimeSignBase64DataCallback");
        if (kind == ImageKind.BMP) {
            throw new IllegalArgumentException("live images are PNG or JPEG");
        }
        synchronized (this) {
            if (kind != liveKind) {
                on(() -> family.flag("SetRealTimeSignBase64DataCallback", kind.code, Receivers.ON_LIVE_IMAGE));
                liveKind = kind;
            }
        }
        return watch.next(receivers.images, time);
    }

    /**
     * The signature stretched to a size (S210).
     *
     * @param size in pixels
     * @param kind PNG, with see-through white, or JPEG
     * @return a whole file
     */
    public byte[] office(Dimension size, ImageKind kind) {
        family.require("InitialWPSSignCanvas");
        if (size.width < 1 || size.height < 1 || kind == ImageKind.BMP) {
            throw new IllegalArgumentException("an office canvas has at least one pixel, and gives PNG or JPEG");
        }
        on(() -> family.flag("InitialWPSSignCanvas", size.width, size.height));
        return picture("WPSBase64Encode", "WPSBase64EncodeFree", kind.code);
    }

    // --- Fingerprint (S310X) ---

    /**
     * Gives the fingerprint a canvas of its own and a rectangle on it (S310X).
     *
     * @param place in pixels
     * @param canvas in pixels
     */
    public void placeFingerprint(Rectangle place, Dimension canvas) {
        family.require("SetDisplayedFPImageAt");
        int result = on(() -> family.code("SetDisplayedFPImageAt",
                null, canvas.width, canvas.height, place.x, place.y, place.width, place.height));
        if (result == LowLevel.ReturnCode.INVALID_PARAMETERS) {
            throw new IllegalArgumentException(place + " does not lie inside the canvas " + canvas);
        }
    }

    /**
     * The fingerprint's picture (S310X).
     *
     * @param kind the format
     * @param only cut to its rectangle
     * @return a whole file
     */
    public byte[] fingerprint(ImageKind kind, boolean only) {
        family.require("GetFPImageBase64Data");
        byte[] picture = decoded("GetFPImageBase64Data", "FreeFPImageBase64Data", kind.code, only);
        if (picture == null) {
            throw new PadException.NotSupported(
                    "the fingerprint has no picture of its own yet: call placeFingerprint first");
        }
        return picture;
    }

    // --- Calls ---

    void checkOpen() {
        if (closed) {
            throw new PadException.PadClosed();
        }
    }

    /** Runs it on the pad's thread while the pad is open. */
    private <T> T on(Supplier<T> work) {
        checkOpen();
        return PadThread.run(() -> {
            checkOpen(); // once more: it may have been closed while this waited for its turn
            return work.get();
        });
    }

    private void command(String operation, Object... arguments) {
        family.require(operation);
        on(() -> {
            family.command(operation, arguments);
            return null;
        });
    }

    private byte[] decoded(String operation, String givesBack, Object... arguments) {
        byte[] text = on(() -> family.text(operation, givesBack, arguments));
        return text == null ? null : Base64.getDecoder().decode(text);
    }

    private byte[] picture(String operation, String givesBack, Object... arguments) {
        byte[] picture = decoded(operation, givesBack, arguments);
        if (picture == null) {
            throw new PadException.NoInk();
        }
        if (picture.length == 0) {
            throw new PadException.NotSaved(
                    "the picture could not be made: the canvas is too large, or memory or /tmp is full");
        }
        return picture;
    }
}

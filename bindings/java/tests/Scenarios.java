import com.korvane.signpad.ImageKind;
import com.korvane.signpad.Ink;
import com.korvane.signpad.LowLevel;
import com.korvane.signpad.Model;
import com.korvane.signpad.Pad;
import com.korvane.signpad.PadException;
import com.korvane.signpad.Point;
import com.korvane.signpad.Sdk;
import com.korvane.signpad.Tap;
import com.sun.jna.NativeLibrary;
import java.awt.Dimension;
import java.awt.Rectangle;
import java.io.File;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.Duration;
import java.time.temporal.ChronoUnit;
import java.util.Arrays;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Optional;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.TimeUnit;
import java.util.stream.Collectors;

/** Java's runner of the scenarios (bindings/scenarios/table.py says what each does). */
public final class Scenarios {
    private static final Duration LONG = Duration.ofSeconds(60);

    private static Model model;
    private static Path driver;

    private interface Action {
        void run() throws Exception;
    }

    private interface Scenario {
        Map<String, Object> run() throws Exception;
    }

    private static final Map<String, Scenario> SCENARIOS = Map.ofEntries(
            Map.entry("capture", Scenarios::capture),
            Map.entry("path", Scenarios::path),
            Map.entry("cancel", Scenarios::cancel),
            Map.entry("timeout", Scenarios::timeout),
            Map.entry("unplug", Scenarios::unplug),
            Map.entry("fingerprint", Scenarios::fingerprint),
            Map.entry("live", Scenarios::live),
            Map.entry("cycles", Scenarios::cycles),
            Map.entry("collect", Scenarios::collect),
            Map.entry("exit", Scenarios::exit),
            Map.entry("forgotten", Scenarios::forgotten),
            Map.entry("errors", Scenarios::errors),
            Map.entry("inside", Scenarios::inside),
            Map.entry("missing", Scenarios::missing),
            Map.entry("lowlevel", Scenarios::lowlevel),
            Map.entry("bench", Scenarios::bench));

    public static void main(String[] arguments) throws Exception {
        model = Model.valueOf(arguments[1]);
        driver = Path.of(arguments[2]);
        Map<String, Object> answer = SCENARIOS.get(arguments[0]).run();
        System.out.println(answer.entrySet().stream()
                .map(entry -> '"' + entry.getKey() + "\": " + json(entry.getValue()))
                .collect(Collectors.joining(", ", "{", "}")));
    }

    private static String json(Object value) {
        return value instanceof String ? '"' + (String) value + '"' : String.valueOf(value);
    }

    private static Map<String, Object> answer(Object... pairs) {
        Map<String, Object> answer = new LinkedHashMap<>();
        for (int i = 0; i < pairs.length; i += 2) {
            answer.put((String) pairs[i], pairs[i + 1]);
        }
        return answer;
    }

    private static Pad open() {
        Pad pad = Pad.open(model, 400, 226, driver);
        pad.penWidth(2);
        pad.penColor("navy");
        NativeLibrary simulator = NativeLibrary.getInstance(driver.resolve("libkvsignpaddrv.so").toString());
        if (simulator.getFunction("KVSIM_EndDelay").invokeInt(new Object[0]) != 0) {
            throw new IllegalStateException("the recording does not begin");
        }
        simulator.dispose();
        return pad;
    }

    private static String name(Optional<Tap> tap) {
        return tap.map(found -> found.name().toLowerCase()).orElse(null);
    }

    private static String error(Action action) throws Exception {
        try {
            action.run();
        } catch (PadException error) {
            return error.getClass().getSimpleName();
        } catch (IllegalArgumentException error) {
            return "InvalidArgument";
        }
        return null;
    }

    private static void write(String name, byte[] contents) throws Exception {
        Files.write(Path.of(name), contents);
    }

    private static Map<String, Object> capture() throws Exception {
        try (Pad pad = open()) {
            Optional<Tap> tap = pad.await(LONG);
            write("text.png", pad.png());
            write("opaque.png", pad.picture(ImageKind.PNG, false));
            write("text.jpg", pad.picture(ImageKind.JPEG, false));
            write("text.bmp", pad.picture(ImageKind.BMP, false));
            Files.writeString(Path.of("text.svg"), pad.svg());
            Ink ink = pad.ink();
            write("record.ink", ink.toBytes());
            for (String ending : new String[] {"png", "jpg", "bmp", "pdf", "svg"}) {
                pad.save(Path.of("saved." + ending), 300);
            }
            return answer("tap", name(tap), "points", ink.size(), "ends", ink.stream().filter(Point::strokeEnd).count());
        }
    }

    private static Map<String, Object> path() throws Exception {
        try (Pad pad = open()) {
            Optional<Tap> tap = pad.await(LONG);
            pad.save(Path.of("signature ✍️ 😀 ü.png"), 300);
            return answer("tap", name(tap));
        }
    }

    private static Map<String, Object> cancel() throws Exception {
        try (Pad pad = open()) {
            return answer("tap", name(pad.await(ChronoUnit.FOREVER.getDuration())), "points", pad.points());
        }
    }

    private static Map<String, Object> timeout() throws Exception {
        try (Pad pad = open()) {
            Optional<Tap> tap = pad.await(Duration.ofMillis(300));
            return answer("tap", name(tap), "points", pad.points(),
                    "picture", error(pad::png), "file", error(() -> pad.save(Path.of("nothing.png"), 300)));
        }
    }

    private static Map<String, Object> unplug() throws Exception {
        try (Pad pad = open()) {
            return answer("error", error(() -> pad.await(LONG)), "points", pad.points());
        }
    }

    private static Map<String, Object> fingerprint() throws Exception {
        Rectangle place = new Rectangle(10, 20, 104, 144);
        Dimension canvas = new Dimension(300, 200);
        try (Pad pad = open()) {
            String before = error(() -> pad.fingerprint(ImageKind.PNG, true));
            pad.placeFingerprint(place, canvas);
            String outside = error(() -> pad.placeFingerprint(new Rectangle(290, 20, 104, 144), canvas));
            pad.placeFingerprint(place, canvas);
            Optional<Tap> tap = pad.await(LONG);
            write("text.png", pad.png());
            write("fingerprint.png", pad.fingerprint(ImageKind.PNG, true));
            return answer("before", before, "outside", outside, "tap", name(tap));
        }
    }

    private static Map<String, Object> live() throws Exception {
        try (Pad pad = open()) {
            CompletableFuture<Tap> tap = pad.nextTap();
            int images = 0;
            byte[] newest = null;
            while (!tap.isDone()) {
                Optional<byte[]> image = pad.liveImage(ImageKind.PNG, Duration.ofMillis(50));
                if (image.isPresent()) {
                    newest = image.get();
                    ++images;
                }
            }
            newest = pad.liveImage(ImageKind.PNG, Duration.ZERO).orElse(newest); // the last came before the tap
            write("text.png", pad.png());
            return answer("images", images > 1, "same", Arrays.equals(newest, pad.png()));
        }
    }

    private static long resident() throws Exception {
        System.gc();
        return Long.parseLong(Files.readString(Path.of("/proc/self/statm")).split(" ")[1]) * 4096;
    }

    private static int files() {
        return new File("/proc/self/fd").list().length;
    }

    private static Map<String, Object> cycles() throws Exception {
        long memory = 0;
        int files = 0;
        for (int count = 0; count < 1000; ++count) {
            try (Pad pad = Pad.open(model, 400, 226, driver)) {
                pad.onTap(tap -> {}, Runnable::run);
            }
            if (count == 99) {
                memory = resident();
                files = files();
            }
        }
        return answer("cycles", 1000, "grown", resident() - memory > 16 << 20 || files() > files);
    }

    private static Map<String, Object> collect() throws Exception {
        try (Pad pad = open()) {
            CompletableFuture<Tap> tap = pad.nextTap();
            while (!tap.isDone()) {
                System.gc();
            }
            return answer("tap", name(Optional.of(tap.get())), "points", pad.points());
        }
    }

    private static Map<String, Object> inside() throws Exception {
        Pad pad = open();
        CompletableFuture<Integer> taps = new CompletableFuture<>();
        int[] told = {0};
        pad.onTap(tap -> {
            if (pad.isClosed()) {
                return; // one that was on its way already
            }
            ++told[0];
            pad.close();
            taps.complete(told[0]);
        }, Runnable::run); // as what follows nextTap() runs
        int first = taps.get();
        open().close();
        return answer("taps", first, "closed", pad.isClosed());
    }

    private static Map<String, Object> exit() throws Exception {
        Pad pad = open();
        pad.nextTap().thenAccept(tap -> System.exit(7)); // no executor of its own
        Thread.sleep(TimeUnit.HOURS.toMillis(1));
        return answer("open", !pad.isClosed());
    }

    private static Map<String, Object> forgotten() {
        Pad pad = open();
        pad.onTap(tap -> {}, Runnable::run);
        return answer("open", !pad.isClosed());
    }

    private static Map<String, Object> errors() throws Exception {
        Files.createDirectory(Path.of("empty"));
        String none = error(() -> Pad.open(model, 400, 226, Path.of("empty").toAbsolutePath()));
        String nowhere = error(() -> Pad.open(model, 400, 226, Path.of("not-there/below")));
        Pad pad = open();
        pad.await(LONG);
        Map<String, Object> answer = answer(
                "driver", none,
                "nowhere", nowhere,
                "second", error(Scenarios::open),
                "unsupported", error(() -> pad.liveImage(ImageKind.PNG, LONG)),
                "width", error(() -> pad.penWidth(11)),
                "color", error(() -> pad.penColor("nocolour")),
                "ending", error(() -> pad.save(Path.of("signature"), 300)),
                "folder", error(() -> pad.save(Path.of("missing/signature.png"), 300)));
        pad.close();
        answer.put("closed", error(pad::points));
        answer.put("model", error(() -> Model.valueOf("S999")));
        return answer;
    }

    private static Map<String, Object> missing() throws Exception {
        return answer("first", error(Scenarios::open), "again", error(Scenarios::open));
    }

    private static Map<String, Object> lowlevel() throws Exception {
        LowLevel library = Sdk.library();
        long functions = Arrays.stream(LowLevel.class.getMethods()).filter(m -> m.getName().startsWith("KV")).count();
        Path before = Path.of("/proc/self/cwd").toRealPath();
        open().close();
        return answer("functions", functions, "points", library.KVS300_GetTotalInkPointsNumber(5),
                "directory", Path.of("/proc/self/cwd").toRealPath().equals(before));
    }

    private static double timed(int count, Action action) throws Exception {
        for (int i = 0; i < count; ++i) {
            action.run(); // until the compiler has done its work
        }
        long begin = System.nanoTime();
        for (int i = 0; i < count; ++i) {
            action.run();
        }
        return (double) (System.nanoTime() - begin) / count;
    }

    /** For bench/languages: nanoseconds of a call as it is and through the class, milliseconds for all points. */
    private static Map<String, Object> bench() throws Exception {
        LowLevel library = Sdk.library();
        try (Pad pad = open()) {
            pad.await(LONG);
            double raw = timed(20000, () -> library.KVS300_GetTotalInkPointsNumber(5));
            double call = timed(5000, pad::points);
            double ink = timed(20, () -> pad.ink().stream().mapToInt(Point::x).sum());
            return answer("raw_ns", raw, "call_ns", call, "ink_ms", ink / 1e6, "points", pad.points());
        }
    }
}

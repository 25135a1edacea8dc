package com.korvane.signpad;

import com.sun.jna.Native;
import com.sun.jna.Pointer;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.function.Function;
import java.util.stream.Collectors;

/** One model's functions, called by the name that they have in every family. */
final class Family {
    private static final Map<String, Method> METHODS =
            Arrays.stream(LowLevel.class.getMethods()).collect(Collectors.toMap(Method::getName, Function.identity()));

    private final LowLevel library = Sdk.library();
    private final Model model;

    Family(Model model) {
        this.model = model;
    }

    /** Refuses what this model has not. */
    void require(String operation) {
        List<String> families = LowLevel.FAMILIES.get(operation);
        if (families != null && !families.contains(model.prefix)) {
            throw new PadException.NotSupported("the " + model + " has no " + operation);
        }
    }

    int code(String operation, Object... arguments) {
        return (Integer) call(operation, arguments);
    }

    boolean flag(String operation, Object... arguments) {
        return (Byte) call(operation, arguments) != 0;
    }

    /** A text of the library, which gets it back at once; null when there is none. */
    byte[] text(String operation, String givesBack, Object... arguments) {
        Pointer text = (Pointer) call(operation, arguments);
        if (text == null) {
            return null;
        }
        try {
            return text.getByteArray(0, (int) text.indexOf(0, (byte) 0));
        } finally {
            call(givesBack, text);
        }
    }

    /** What a call that fills a buffer has written. */
    String buffer(String operation) {
        byte[] buffer = new byte[256];
        command(operation, buffer, buffer.length);
        return Native.toString(buffer, "UTF-8");
    }

    void command(String operation, Object... arguments) {
        int result = code(operation, arguments);
        if (result != LowLevel.ReturnCode.SUCCESS) {
            throw new PadException.CommandFailed(operation, result);
        }
    }

    private Object call(String operation, Object... arguments) {
        Object[] all = new Object[arguments.length + 1];
        all[0] = model.deviceType;
        System.arraycopy(arguments, 0, all, 1, arguments.length);
        try {
            return METHODS.get(model.prefix + "_" + operation).invoke(library, all);
        } catch (InvocationTargetException error) {
            throw new IllegalStateException(operation, error.getCause());
        } catch (IllegalAccessException error) {
            throw new IllegalStateException(operation, error);
        }
    }
}

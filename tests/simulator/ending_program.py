"""A program that ends with a pad open and a receiver set: ending_program.py LIBRARY.

When the interpreter shuts down, it ends the thread that it finds in the receiver. The process must end all the same. The
receiver does not return, for a thread that entered the interpreter once it has shut down would crash in it.
"""

import ctypes
import sys
import threading

KVS300_DEVICE = 5
taken = threading.Event()
sdk = ctypes.CDLL(sys.argv[1])
sdk.KVS300_InitialDevice.restype = ctypes.c_bool


@ctypes.CFUNCTYPE(None, ctypes.c_int)
def tapped(key):
    taken.set()
    while True:
        sum(range(1000))


if not sdk.KVS300_InitialDevice(KVS300_DEVICE, None, 0, 0, 400, 200):
    sys.exit("no pad")
sdk.KVS300_SignPadEventCallback(KVS300_DEVICE, tapped)
sdk.KVS300_Clear(KVS300_DEVICE)
sys.exit(0 if taken.wait(60) else "nothing was tapped")

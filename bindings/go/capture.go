// Captures a signature on an S300 into signature.png. The pad's driver lies in the working directory.
package main

/*
#cgo LDFLAGS: -lkvsignpadsdk
#include <kvsignpadsdk_global.h>
*/
import "C"

import (
	"errors"
	"fmt"
	"os"
	"runtime"
	"time"
	"unsafe"
)

func capture() error {
	runtime.LockOSThread() // the pad is opened, used and closed on one thread
	if !bool(C.KVS300_InitialDevice(C.KVS300_DEVICE, nil, 0, 0, 800, 452)) {
		return errors.New("no S300 pad")
	}
	defer C.KVS300_UnInitialDevice(C.KVS300_DEVICE)
	C.KVS300_SetPenWidth(C.KVS300_DEVICE, 2)
	key := C.int(-1)
	for ; key < 0; key = C.KVS300_GetDeviceConfirmOrCancelKeyStatus(C.KVS300_DEVICE) {
		time.Sleep(50 * time.Millisecond)
	}
	if key == 0 {
		return errors.New("the signer cancelled")
	}
	// A rune is one code point, as a wchar_t is; the zero closes the text.
	path := []rune("signature.png\x00")
	if C.KVS300_SaveDrawingImage(C.KVS300_DEVICE, C.ITI_PNG, (*C.wchar_t)(unsafe.Pointer(&path[0])), C.IDLI_300DPI) != 0 {
		return errors.New("signature.png could not be written")
	}
	fmt.Println(C.KVS300_GetTotalInkPointsNumber(C.KVS300_DEVICE), "points")
	return nil
}

func main() {
	if err := capture(); err != nil {
		fmt.Fprintln(os.Stderr, err)
		os.Exit(1)
	}
}

// Captures a signature on an S300 into signature.png. The pad's driver lies in the working directory.
#[allow(non_upper_case_globals, non_camel_case_types, non_snake_case, dead_code)]
mod sdk {
    include!("bindings.rs"); // bindgen makes it from the header
}
use sdk::*;
use std::{ptr, thread, time::Duration};

const S300: i32 = DEVICE_TYPE_ID_KVS300_DEVICE as i32;

/// Closes the pad whatever happens.
struct Open;

impl Drop for Open {
    fn drop(&mut self) {
        unsafe { KVS300_UnInitialDevice(S300) };
    }
}

fn capture() -> Result<i32, &'static str> {
    if !unsafe { KVS300_InitialDevice(S300, ptr::null_mut(), 0, 0, 800, 452) } {
        return Err("no S300 pad");
    }
    let _open = Open;
    unsafe { KVS300_SetPenWidth(S300, 2) };
    let key = loop {
        match unsafe { KVS300_GetDeviceConfirmOrCancelKeyStatus(S300) } {
            -1 => thread::sleep(Duration::from_millis(50)),
            key => break key,
        }
    };
    if key == 0 {
        return Err("the signer cancelled");
    }
    // A char is one code point, as a wchar_t is; the zero closes the text.
    let mut path: Vec<wchar_t> = "signature.png\0".chars().map(|letter| letter as wchar_t).collect();
    let (png, dpi) = (IMAGE_TYPE_ID_ITI_PNG as i32, IMAGE_DPI_LEVEL_ID_IDLI_300DPI as i32);
    if unsafe { KVS300_SaveDrawingImage(S300, png, path.as_mut_ptr(), dpi) } != 0 {
        return Err("signature.png could not be written");
    }
    Ok(unsafe { KVS300_GetTotalInkPointsNumber(S300) })
}

fn main() {
    match capture() {
        Ok(points) => println!("{} points", points),
        Err(reason) => {
            eprintln!("{}", reason);
            std::process::exit(1);
        }
    }
}

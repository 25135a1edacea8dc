"""What is known of an open pad."""

from __future__ import annotations

import ctypes
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any

from .errors import NotSupported
from .lowlevel import Axis, DeviceInfoItem, SdkVersion

if TYPE_CHECKING:
    from .pad import Pad


@dataclass(frozen=True)
class PadInfo:
    """The library's own knowledge of the model, and the pressure range of this very pad."""

    vendor: str
    product: str
    width: int  # of the writing area, in raw units
    height: int
    max_pressure: int
    driver_interface: str  # version of the driver's interface


def device_info(pad: Pad) -> PadInfo:
    across: Axis = _item(pad, DeviceInfoItem.AXIS_X, Axis())
    down: Axis = _item(pad, DeviceInfoItem.AXIS_Y, Axis())
    version: SdkVersion = _item(pad, DeviceInfoItem.DRIVER_VERSION, SdkVersion())
    return PadInfo(
        vendor=_item(pad, DeviceInfoItem.VENDOR, ctypes.create_string_buffer(64)).value.decode(),
        product=_item(pad, DeviceInfoItem.PRODUCT, ctypes.create_string_buffer(64)).value.decode(),
        width=across.nAXMax,
        height=down.nAXMax,
        max_pressure=_item(pad, DeviceInfoItem.PRESSURE, ctypes.c_int32()).value,
        driver_interface=f"{version.nMajorVersion}.{version.nMinorVersion}",
    )


def _item(pad: Pad, item: DeviceInfoItem, place: Any) -> Any:
    pad._command("GetDeviceInfo", item, ctypes.byref(place))
    return place


def device_text(pad: Pad, operation: str) -> str:
    """One of the texts that the pad itself answers."""
    buffer = ctypes.create_string_buffer(256)
    try:
        pad._command(operation, buffer, len(buffer))
    except NotSupported:
        raise NotSupported(f"the {pad.model} tells no such identifier") from None
    return buffer.value.decode(errors="replace")

# Tests of the driver's binding, the pad's settings, the mapping, the canvas host and pen packets.

kv_add_test(driver_loading_test driver_loading_test.cpp PADS)
foreach(operation Initial UnInitial OpenDeviceLCD ClearDeviceContent GetDevicePenID GetDevicePadID GetDeviceSecureID
    GetDevicePartsVersion ShowVersionInfoOnDevice SetDevicePenStyle ShowFPImageOnDevice)
  add_dependencies(driver_loading_test kvsignpaddrv_without_${operation})
endforeach()
kv_add_test(driver_recognition_test driver_recognition_test.cpp INSIDE)
kv_add_test(driver_shutdown_test driver_shutdown_test.cpp INSIDE THREADS)
kv_add_test(devicesettings_test devicesettings_test.cpp PADS)
kv_add_test(devicesettings_inside_test devicesettings_inside_test.cpp INSIDE)
kv_add_test(deviceinfo_test deviceinfo_test.cpp INSIDE)
kv_add_test(clearcontent_test clearcontent_test.cpp INSIDE)

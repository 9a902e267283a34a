/* hidclass's interface to a minidriver, from its documented layouts: mingw-w64 has no hidport.h,
   and its ddk/hidclass.h gives these requests wrong codes. */
#pragma once
#include <ddk/wdm.h>

#define HIDMINI_CTL(id) CTL_CODE(FILE_DEVICE_KEYBOARD, (id), METHOD_NEITHER, FILE_ANY_ACCESS)
#define HIDMINI_IN_CTL(id) CTL_CODE(FILE_DEVICE_KEYBOARD, (id), METHOD_IN_DIRECT, FILE_ANY_ACCESS)
#define HIDMINI_OUT_CTL(id) CTL_CODE(FILE_DEVICE_KEYBOARD, (id), METHOD_OUT_DIRECT, FILE_ANY_ACCESS)

#define HIDMINI_GET_DEVICE_DESCRIPTOR HIDMINI_CTL(0)
#define HIDMINI_GET_REPORT_DESCRIPTOR HIDMINI_CTL(1)
#define HIDMINI_READ_REPORT HIDMINI_CTL(2)
#define HIDMINI_WRITE_REPORT HIDMINI_CTL(3)
#define HIDMINI_GET_STRING HIDMINI_CTL(4)
#define HIDMINI_ACTIVATE_DEVICE HIDMINI_CTL(7)
#define HIDMINI_DEACTIVATE_DEVICE HIDMINI_CTL(8)
#define HIDMINI_GET_DEVICE_ATTRIBUTES HIDMINI_CTL(9)
#define HIDMINI_SEND_IDLE_NOTIFICATION HIDMINI_CTL(10)
#define HIDMINI_GET_FEATURE HIDMINI_OUT_CTL(100)
#define HIDMINI_SET_FEATURE HIDMINI_IN_CTL(100)
#define HIDMINI_SET_OUTPUT_REPORT HIDMINI_IN_CTL(101)
#define HIDMINI_GET_INPUT_REPORT HIDMINI_OUT_CTL(104)

#define HIDMINI_STRING_MANUFACTURER 1
#define HIDMINI_STRING_PRODUCT 2
#define HIDMINI_STRING_SERIAL 3

typedef struct HID_MINIDRIVER_REGISTRATION {
    ULONG Revision;
    PDRIVER_OBJECT DriverObject;
    PUNICODE_STRING RegistryPath;
    ULONG DeviceExtensionSize;
    BOOLEAN DevicesArePolled;
    UCHAR Reserved[3];
} HID_MINIDRIVER_REGISTRATION;

typedef struct HID_DEVICE_EXTENSION {
    PDEVICE_OBJECT PhysicalDeviceObject;
    PDEVICE_OBJECT NextDeviceObject;
    PVOID MiniDeviceExtension;
} HID_DEVICE_EXTENSION;

#pragma pack(push, 1)
typedef struct HID_DESCRIPTOR {
    UCHAR bLength;
    UCHAR bDescriptorType;
    USHORT bcdHID;
    UCHAR bCountry;
    UCHAR bNumDescriptors;
    UCHAR bReportType;
    USHORT wReportLength;
} HID_DESCRIPTOR;
#pragma pack(pop)

typedef struct HID_DEVICE_ATTRIBUTES {
    ULONG Size;
    USHORT VendorID;
    USHORT ProductID;
    USHORT VersionNumber;
    USHORT Reserved[11];
} HID_DEVICE_ATTRIBUTES;

typedef struct HID_XFER_PACKET {
    PUCHAR reportBuffer;
    ULONG reportBufferLen;
    UCHAR reportId;
} HID_XFER_PACKET;

NTSTATUS NTAPI HidRegisterMinidriver(HID_MINIDRIVER_REGISTRATION* registration);

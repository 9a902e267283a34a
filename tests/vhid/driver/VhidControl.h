/* What the test tool and the virtual touchpad's driver say to each other: the control device's
   requests, and the values the tool leaves in a device's registry key for the driver to serve.
   Included by the driver (C, kernel) and the tool (C++, user mode). */
#pragma once

#define VHID_CONTROL_DEVICE L"\\Device\\KstrVhid"
#define VHID_CONTROL_LINK L"\\??\\KstrVhid"
#define VHID_CONTROL_PATH L"\\\\.\\KstrVhid"

/* Input: a VHID_REPORT_HEADER, then one report, report id first. */
#define VHID_IOCTL_INPUT CTL_CODE(FILE_DEVICE_UNKNOWN, 0x800, METHOD_BUFFERED, FILE_ANY_ACCESS)
#define VHID_IOCTL_FEATURE CTL_CODE(FILE_DEVICE_UNKNOWN, 0x801, METHOD_BUFFERED, FILE_ANY_ACCESS)

#define VHID_MAX_REPORT 512 /* a certification blob is 257 bytes */
#define VHID_MAX_DESCRIPTOR 4096

typedef struct VHID_REPORT_HEADER {
    unsigned short vendorId;
    unsigned short productId;
} VHID_REPORT_HEADER;

/* Values of the device's hardware key (PLUGPLAY_REGKEY_DEVICE, DIREG_DEV). */
#define VHID_VALUE_DESCRIPTOR L"ReportDescriptor" /* REG_BINARY: the collection served */
#define VHID_VALUE_VENDOR L"VendorID"             /* REG_DWORD */
#define VHID_VALUE_PRODUCT L"ProductID"           /* REG_DWORD */

/* The hardware id of every virtual touchpad; the instance is named VID_xxxx&PID_xxxx. */
#define VHID_HARDWARE_ID L"root\\kstrvhid"

/* The virtual touchpad's driver: one hub for the driver (its control device and every pad), one
   pad for each device hidclass adds. */
#pragma once
#include "HidMinidriver.h"
#include "VhidControl.h"

#define VHID_QUEUE 256    /* input reports waiting for hidclass's next read */
#define VHID_FEATURES 16  /* feature reports kept, one per report id */

typedef struct VHID_REPORT {
    USHORT length;        /* 0: none */
    UCHAR bytes[VHID_MAX_REPORT];
} VHID_REPORT;

typedef struct VHID_PAD {
    LIST_ENTRY link;      /* in the hub's pads while the device is there */
    PDEVICE_OBJECT fdo;
    USHORT vendorId;
    USHORT productId;
    BOOLEAN gone;         /* removed: takes no more reports */
    ULONG descriptorLength;
    UCHAR descriptor[VHID_MAX_DESCRIPTOR];
    PIRP pendingRead;     /* hidclass's read, waiting for a report */
    ULONG head;
    ULONG count;
    VHID_REPORT queue[VHID_QUEUE];
    VHID_REPORT features[VHID_FEATURES];
} VHID_PAD;

/* Driver-wide: the control device and every pad. One lock guards the pads and their queues. */
typedef struct VHID_HUB {
    KSPIN_LOCK lock;
    LIST_ENTRY pads;
    PDEVICE_OBJECT control;
    PDRIVER_DISPATCH hidCreate;
    PDRIVER_DISPATCH hidClose;
    PDRIVER_DISPATCH hidDeviceControl;
} VHID_HUB;

VHID_HUB* VhidHub(PDRIVER_OBJECT driver);
VHID_PAD* VhidPad(PDEVICE_OBJECT fdo);
NTSTATUS VhidComplete(PIRP irp, NTSTATUS status, ULONG_PTR information);

/* Pad.c: a pad's reports. */
NTSTATUS PadLoad(VHID_PAD* pad, PDEVICE_OBJECT pdo);
NTSTATUS PadRead(VHID_HUB* hub, VHID_PAD* pad, PIRP irp);
NTSTATUS PadFeed(VHID_HUB* hub, const VHID_REPORT_HEADER* header, const UCHAR* report, ULONG length, BOOLEAN feature);
NTSTATUS PadGetFeature(VHID_HUB* hub, VHID_PAD* pad, HID_XFER_PACKET* packet, ULONG_PTR* copied);
NTSTATUS PadSetFeature(VHID_HUB* hub, VHID_PAD* pad, const HID_XFER_PACKET* packet);
void PadLose(VHID_HUB* hub, VHID_PAD* pad, BOOLEAN unlink);
void PadRestart(VHID_HUB* hub, VHID_PAD* pad);

/* PadDispatch.c: what hidclass asks of a pad. */
NTSTATUS NTAPI PadInternalControl(PDEVICE_OBJECT fdo, PIRP irp);
NTSTATUS NTAPI PadPnp(PDEVICE_OBJECT fdo, PIRP irp);
NTSTATUS NTAPI PadPower(PDEVICE_OBJECT fdo, PIRP irp);

#include "Vhid.h"

/* A wide string with its terminator into `out`; the bytes it took, 0 when it does not fit. */
static ULONG_PTR CopyString(PCWSTR text, void* out, ULONG capacity)
{
    ULONG size = sizeof(WCHAR);
    for (PCWSTR c = text; *c != 0; ++c) {
        size += sizeof(WCHAR);
    }
    if (size > capacity) {
        return 0;
    }
    RtlCopyMemory(out, text, size);
    return size;
}

static NTSTATUS Describe(VHID_PAD* pad, PIRP irp, ULONG capacity)
{
    if (capacity < sizeof(HID_DESCRIPTOR)) {
        return VhidComplete(irp, STATUS_BUFFER_TOO_SMALL, 0);
    }
    HID_DESCRIPTOR* descriptor = irp->UserBuffer;
    RtlZeroMemory(descriptor, sizeof(*descriptor));
    descriptor->bLength = sizeof(HID_DESCRIPTOR);
    descriptor->bDescriptorType = 0x21;
    descriptor->bcdHID = 0x0100;
    descriptor->bNumDescriptors = 1;
    descriptor->bReportType = 0x22;
    descriptor->wReportLength = (USHORT)pad->descriptorLength;
    return VhidComplete(irp, STATUS_SUCCESS, sizeof(HID_DESCRIPTOR));
}

static NTSTATUS Name(VHID_PAD* pad, PIRP irp, ULONG capacity)
{
    if (capacity < sizeof(HID_DEVICE_ATTRIBUTES)) {
        return VhidComplete(irp, STATUS_BUFFER_TOO_SMALL, 0);
    }
    HID_DEVICE_ATTRIBUTES* attributes = irp->UserBuffer;
    RtlZeroMemory(attributes, sizeof(*attributes));
    attributes->Size = sizeof(*attributes);
    attributes->VendorID = pad->vendorId;
    attributes->ProductID = pad->productId;
    attributes->VersionNumber = 0x0100;
    return VhidComplete(irp, STATUS_SUCCESS, sizeof(*attributes));
}

static NTSTATUS String(PIRP irp, ULONG id, ULONG capacity)
{
    static const PCWSTR kStrings[] = {L"kstrmouse tests", L"Virtual touchpad (tests only)", L"0001"};
    if (id < HIDMINI_STRING_MANUFACTURER || id > HIDMINI_STRING_SERIAL) {
        return VhidComplete(irp, STATUS_INVALID_PARAMETER, 0);
    }
    const ULONG_PTR size = CopyString(kStrings[id - 1], irp->UserBuffer, capacity);
    return VhidComplete(irp, size == 0 ? STATUS_BUFFER_TOO_SMALL : STATUS_SUCCESS, size);
}

NTSTATUS NTAPI PadInternalControl(PDEVICE_OBJECT fdo, PIRP irp)
{
    VHID_HUB* hub = VhidHub(fdo->DriverObject);
    VHID_PAD* pad = VhidPad(fdo);
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    const ULONG capacity = stack->Parameters.DeviceIoControl.OutputBufferLength;
    HID_XFER_PACKET* packet = irp->UserBuffer;
    switch (stack->Parameters.DeviceIoControl.IoControlCode) {
    case HIDMINI_GET_DEVICE_DESCRIPTOR:
        return Describe(pad, irp, capacity);
    case HIDMINI_GET_REPORT_DESCRIPTOR:
        if (capacity < pad->descriptorLength) {
            return VhidComplete(irp, STATUS_BUFFER_TOO_SMALL, 0);
        }
        RtlCopyMemory(irp->UserBuffer, pad->descriptor, pad->descriptorLength);
        return VhidComplete(irp, STATUS_SUCCESS, pad->descriptorLength);
    case HIDMINI_GET_DEVICE_ATTRIBUTES:
        return Name(pad, irp, capacity);
    case HIDMINI_GET_STRING:
        return String(irp, (ULONG)((ULONG_PTR)stack->Parameters.DeviceIoControl.Type3InputBuffer & 0xFFFF), capacity);
    case HIDMINI_READ_REPORT:
        return PadRead(hub, pad, irp);
    case HIDMINI_GET_FEATURE: {
        if (capacity < sizeof(HID_XFER_PACKET)) {
            return VhidComplete(irp, STATUS_BUFFER_TOO_SMALL, 0);
        }
        ULONG_PTR copied = 0;
        const NTSTATUS status = PadGetFeature(hub, pad, packet, &copied);
        return VhidComplete(irp, status, copied);
    }
    case HIDMINI_SET_FEATURE:
        if (capacity < sizeof(HID_XFER_PACKET)) {
            return VhidComplete(irp, STATUS_BUFFER_TOO_SMALL, 0);
        }
        return VhidComplete(irp, PadSetFeature(hub, pad, packet), packet->reportBufferLen);
    case HIDMINI_WRITE_REPORT:
    case HIDMINI_SET_OUTPUT_REPORT:
        /* A touchpad has no output; taken and dropped. */
        return VhidComplete(irp, STATUS_SUCCESS, capacity >= sizeof(HID_XFER_PACKET) ? packet->reportBufferLen : 0);
    case HIDMINI_ACTIVATE_DEVICE:
    case HIDMINI_DEACTIVATE_DEVICE:
    case HIDMINI_SEND_IDLE_NOTIFICATION:
        return VhidComplete(irp, STATUS_SUCCESS, 0);
    default:
        return VhidComplete(irp, STATUS_NOT_SUPPORTED, 0);
    }
}

static NTSTATUS NTAPI Started(PDEVICE_OBJECT device, PIRP irp, PVOID event)
{
    (void)device;
    (void)irp;
    KeSetEvent(event, IO_NO_INCREMENT, FALSE);
    return STATUS_MORE_PROCESSING_REQUIRED;
}

/* hidclass reads the descriptors as soon as the start returns: the start is complete by then. */
static NTSTATUS Start(PDEVICE_OBJECT next, PIRP irp)
{
    KEVENT event;
    KeInitializeEvent(&event, NotificationEvent, FALSE);
    IoCopyCurrentIrpStackLocationToNext(irp);
    IoSetCompletionRoutine(irp, Started, &event, TRUE, TRUE, TRUE);
    if (IoCallDriver(next, irp) == STATUS_PENDING) {
        KeWaitForSingleObject(&event, Executive, KernelMode, FALSE, NULL);
    }
    const NTSTATUS status = irp->IoStatus.Status;
    IoCompleteRequest(irp, IO_NO_INCREMENT);
    return status;
}

NTSTATUS NTAPI PadPnp(PDEVICE_OBJECT fdo, PIRP irp)
{
    const HID_DEVICE_EXTENSION* extension = fdo->DeviceExtension;
    VHID_HUB* hub = VhidHub(fdo->DriverObject);
    VHID_PAD* pad = VhidPad(fdo);
    switch (IoGetCurrentIrpStackLocation(irp)->MinorFunction) {
    case IRP_MN_START_DEVICE:
        PadRestart(hub, pad);   /* after a stop, it takes reports again */
        return Start(extension->NextDeviceObject, irp);
    case IRP_MN_SURPRISE_REMOVAL:
    case IRP_MN_STOP_DEVICE:
        PadLose(hub, pad, FALSE);
        irp->IoStatus.Status = STATUS_SUCCESS;
        break;
    case IRP_MN_REMOVE_DEVICE:
        PadLose(hub, pad, TRUE);
        irp->IoStatus.Status = STATUS_SUCCESS;
        break;
    default:
        break;
    }
    IoSkipCurrentIrpStackLocation(irp);
    return IoCallDriver(extension->NextDeviceObject, irp);
}

NTSTATUS NTAPI PadPower(PDEVICE_OBJECT fdo, PIRP irp)
{
    const HID_DEVICE_EXTENSION* extension = fdo->DeviceExtension;
    PoStartNextPowerIrp(irp);
    IoSkipCurrentIrpStackLocation(irp);
    return PoCallDriver(extension->NextDeviceObject, irp);
}

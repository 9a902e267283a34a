#include "Vhid.h"

static const ULONG kTag = 0x64696856; /* "Vhid" in a pool dump */

/* One value of the device's key into `out` (at most `capacity` bytes); its length, 0 if absent. */
static ULONG ReadValue(HANDLE key, PCWSTR name, UCHAR* out, ULONG capacity)
{
    UNICODE_STRING valueName;
    RtlInitUnicodeString(&valueName, name);
    const ULONG size = sizeof(KEY_VALUE_PARTIAL_INFORMATION) + capacity;
    KEY_VALUE_PARTIAL_INFORMATION* info = ExAllocatePoolWithTag(PagedPool, size, kTag);
    ULONG length = 0;
    if (info == NULL) {
        return 0;
    }
    ULONG got = 0;
    if (NT_SUCCESS(ZwQueryValueKey(key, &valueName, KeyValuePartialInformation, info, size, &got)) &&
        info->DataLength <= capacity) {
        RtlCopyMemory(out, info->Data, info->DataLength);
        length = info->DataLength;
    }
    ExFreePoolWithTag(info, kTag);
    return length;
}

NTSTATUS PadLoad(VHID_PAD* pad, PDEVICE_OBJECT pdo)
{
    HANDLE key;
    NTSTATUS status = IoOpenDeviceRegistryKey(pdo, PLUGPLAY_REGKEY_DEVICE, KEY_READ, &key);
    if (!NT_SUCCESS(status)) {
        DbgPrint("kstrvhid: no device key (0x%08lx)\n", status);
        return status;
    }
    ULONG vendor = 0;
    ULONG product = 0;
    pad->descriptorLength = ReadValue(key, VHID_VALUE_DESCRIPTOR, pad->descriptor, sizeof(pad->descriptor));
    const BOOLEAN named = ReadValue(key, VHID_VALUE_VENDOR, (UCHAR*)&vendor, sizeof(vendor)) == sizeof(vendor) &&
                          ReadValue(key, VHID_VALUE_PRODUCT, (UCHAR*)&product, sizeof(product)) == sizeof(product);
    ZwClose(key);
    if (pad->descriptorLength == 0 || !named) {
        DbgPrint("kstrvhid: the device key lacks its descriptor or ids\n");
        return STATUS_DEVICE_CONFIGURATION_ERROR;
    }
    pad->vendorId = (USHORT)vendor;
    pad->productId = (USHORT)product;
    return STATUS_SUCCESS;
}

/* Copies a report into hidclass's read; the length it took. */
static ULONG_PTR Deliver(PIRP irp, const VHID_REPORT* report)
{
    const ULONG capacity = IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.OutputBufferLength;
    const ULONG length = report->length < capacity ? report->length : capacity;
    RtlCopyMemory(irp->UserBuffer, report->bytes, length);
    return length;
}

static void NTAPI CancelRead(PDEVICE_OBJECT fdo, PIRP irp)
{
    IoReleaseCancelSpinLock(irp->CancelIrql);
    VHID_HUB* hub = VhidHub(fdo->DriverObject);
    VHID_PAD* pad = VhidPad(fdo);
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    if (pad->pendingRead == irp) {
        pad->pendingRead = NULL;
    }
    KeReleaseSpinLock(&hub->lock, irql);
    VhidComplete(irp, STATUS_CANCELLED, 0);
}

NTSTATUS PadRead(VHID_HUB* hub, VHID_PAD* pad, PIRP irp)
{
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    if (pad->gone) {
        KeReleaseSpinLock(&hub->lock, irql);
        return VhidComplete(irp, STATUS_DELETE_PENDING, 0);
    }
    if (pad->count > 0) {
        const ULONG_PTR length = Deliver(irp, &pad->queue[pad->head]);
        pad->head = (pad->head + 1) % VHID_QUEUE;
        --pad->count;
        KeReleaseSpinLock(&hub->lock, irql);
        return VhidComplete(irp, STATUS_SUCCESS, length);
    }
    if (pad->pendingRead != NULL) {
        KeReleaseSpinLock(&hub->lock, irql);
        return VhidComplete(irp, STATUS_DEVICE_BUSY, 0);   /* hidclass reads one at a time */
    }
    IoMarkIrpPending(irp);
    IoSetCancelRoutine(irp, CancelRead);
    if (irp->Cancel && IoSetCancelRoutine(irp, NULL) != NULL) {
        /* Cancelled before the routine was in place: nobody else completes it. */
        KeReleaseSpinLock(&hub->lock, irql);
        VhidComplete(irp, STATUS_CANCELLED, 0);
        return STATUS_PENDING;
    }
    pad->pendingRead = irp;
    KeReleaseSpinLock(&hub->lock, irql);
    return STATUS_PENDING;
}

/* The waiting read, taken from its cancel routine; none when there is none or it is being cancelled. */
static PIRP TakeRead(VHID_PAD* pad)
{
    PIRP irp = pad->pendingRead;
    if (irp == NULL || IoSetCancelRoutine(irp, NULL) == NULL) {
        return NULL;
    }
    pad->pendingRead = NULL;
    return irp;
}

static VHID_PAD* FindPad(VHID_HUB* hub, const VHID_REPORT_HEADER* header)
{
    for (LIST_ENTRY* entry = hub->pads.Flink; entry != &hub->pads; entry = entry->Flink) {
        VHID_PAD* pad = CONTAINING_RECORD(entry, VHID_PAD, link);
        if (pad->vendorId == header->vendorId && pad->productId == header->productId && !pad->gone) {
            return pad;
        }
    }
    return NULL;
}

/* The slot of a feature report id: its own, or a free one. */
static VHID_REPORT* FeatureSlot(VHID_PAD* pad, UCHAR reportId, BOOLEAN create)
{
    VHID_REPORT* free = NULL;
    for (ULONG i = 0; i < VHID_FEATURES; ++i) {
        VHID_REPORT* slot = &pad->features[i];
        if (slot->length > 0 && slot->bytes[0] == reportId) {
            return slot;
        }
        if (slot->length == 0 && free == NULL) {
            free = slot;
        }
    }
    return create ? free : NULL;
}

NTSTATUS PadFeed(VHID_HUB* hub, const VHID_REPORT_HEADER* header, const UCHAR* report, ULONG length, BOOLEAN feature)
{
    if (length == 0 || length > VHID_MAX_REPORT) {
        return STATUS_INVALID_PARAMETER;
    }
    VHID_REPORT copy;
    copy.length = (USHORT)length;
    RtlCopyMemory(copy.bytes, report, length);
    NTSTATUS status = STATUS_SUCCESS;
    PIRP read = NULL;
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    VHID_PAD* pad = FindPad(hub, header);
    if (pad == NULL) {
        status = STATUS_NO_SUCH_DEVICE;
    } else if (feature) {
        VHID_REPORT* slot = FeatureSlot(pad, copy.bytes[0], TRUE);
        if (slot == NULL) {
            status = STATUS_INSUFFICIENT_RESOURCES;
        } else {
            *slot = copy;
        }
    } else if ((read = TakeRead(pad)) == NULL) {
        if (pad->count == VHID_QUEUE) {
            status = STATUS_DEVICE_BUSY;
        } else {
            pad->queue[(pad->head + pad->count) % VHID_QUEUE] = copy;
            ++pad->count;
        }
    }
    KeReleaseSpinLock(&hub->lock, irql);
    if (read != NULL) {
        VhidComplete(read, STATUS_SUCCESS, Deliver(read, &copy));
    }
    return status;
}

NTSTATUS PadGetFeature(VHID_HUB* hub, VHID_PAD* pad, HID_XFER_PACKET* packet, ULONG_PTR* copied)
{
    NTSTATUS status = STATUS_NO_SUCH_DEVICE;   /* never set: a real device would not answer it either */
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    const VHID_REPORT* slot = FeatureSlot(pad, packet->reportId, FALSE);
    if (slot != NULL) {
        if (slot->length > packet->reportBufferLen) {
            status = STATUS_BUFFER_TOO_SMALL;
        } else {
            RtlCopyMemory(packet->reportBuffer, slot->bytes, slot->length);
            *copied = slot->length;
            status = STATUS_SUCCESS;
        }
    }
    KeReleaseSpinLock(&hub->lock, irql);
    return status;
}

NTSTATUS PadSetFeature(VHID_HUB* hub, VHID_PAD* pad, const HID_XFER_PACKET* packet)
{
    if (packet->reportBufferLen == 0 || packet->reportBufferLen > VHID_MAX_REPORT) {
        return STATUS_INVALID_PARAMETER;
    }
    NTSTATUS status = STATUS_SUCCESS;
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    VHID_REPORT* slot = FeatureSlot(pad, packet->reportBuffer[0], TRUE);
    if (slot == NULL) {
        status = STATUS_INSUFFICIENT_RESOURCES;
    } else {
        slot->length = (USHORT)packet->reportBufferLen;
        RtlCopyMemory(slot->bytes, packet->reportBuffer, packet->reportBufferLen);
    }
    KeReleaseSpinLock(&hub->lock, irql);
    return status;
}

void PadLose(VHID_HUB* hub, VHID_PAD* pad, BOOLEAN unlink)
{
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    pad->gone = TRUE;
    pad->count = 0;
    PIRP read = TakeRead(pad);
    if (unlink && pad->link.Flink != NULL) {
        RemoveEntryList(&pad->link);
        pad->link.Flink = pad->link.Blink = NULL;
    }
    KeReleaseSpinLock(&hub->lock, irql);
    if (read != NULL) {
        VhidComplete(read, STATUS_DELETE_PENDING, 0);
    }
}

void PadRestart(VHID_HUB* hub, VHID_PAD* pad)
{
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    pad->gone = pad->link.Flink == NULL;   /* removed for good once unlinked */
    KeReleaseSpinLock(&hub->lock, irql);
}

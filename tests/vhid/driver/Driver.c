/* A HID minidriver that serves a report descriptor and the reports a test tool sends it through
   a control device: a touchpad under Wine for the tests, which have none. */
#include "Vhid.h"

/* The driver's own state lives in the image: Wine 8's IoAllocateDriverObjectExtension is a stub
   that fails, and a driver object has no other room for it. The image is loaded once per Wine
   session, for one driver object. */
static VHID_HUB g_hub;

VHID_HUB* VhidHub(PDRIVER_OBJECT driver)
{
    (void)driver;
    return &g_hub;
}

VHID_PAD* VhidPad(PDEVICE_OBJECT fdo)
{
    return ((HID_DEVICE_EXTENSION*)fdo->DeviceExtension)->MiniDeviceExtension;
}

NTSTATUS VhidComplete(PIRP irp, NTSTATUS status, ULONG_PTR information)
{
    irp->IoStatus.Status = status;
    irp->IoStatus.Information = NT_SUCCESS(status) ? information : 0;
    IoCompleteRequest(irp, IO_NO_INCREMENT);
    return status;
}

/* hidclass has made the device; the pad's settings come from the device's key. */
static NTSTATUS NTAPI AddDevice(PDRIVER_OBJECT driver, PDEVICE_OBJECT fdo)
{
    VHID_HUB* hub = VhidHub(driver);
    VHID_PAD* pad = VhidPad(fdo);
    RtlZeroMemory(pad, sizeof(*pad));
    pad->fdo = fdo;
    const NTSTATUS status = PadLoad(pad, ((HID_DEVICE_EXTENSION*)fdo->DeviceExtension)->PhysicalDeviceObject);
    if (!NT_SUCCESS(status)) {
        return status;
    }
    KIRQL irql;
    KeAcquireSpinLock(&hub->lock, &irql);
    InsertTailList(&hub->pads, &pad->link);
    KeReleaseSpinLock(&hub->lock, irql);
    fdo->Flags &= ~DO_DEVICE_INITIALIZING;
    return STATUS_SUCCESS;
}

static NTSTATUS ControlRequest(VHID_HUB* hub, PIRP irp)
{
    const IO_STACK_LOCATION* stack = IoGetCurrentIrpStackLocation(irp);
    const ULONG code = stack->Parameters.DeviceIoControl.IoControlCode;
    const ULONG length = stack->Parameters.DeviceIoControl.InputBufferLength;
    if ((code != VHID_IOCTL_INPUT && code != VHID_IOCTL_FEATURE) || length <= sizeof(VHID_REPORT_HEADER)) {
        return VhidComplete(irp, STATUS_INVALID_DEVICE_REQUEST, 0);
    }
    const UCHAR* buffer = irp->AssociatedIrp.SystemBuffer;
    const NTSTATUS status = PadFeed(hub, (const VHID_REPORT_HEADER*)buffer, buffer + sizeof(VHID_REPORT_HEADER),
                                    length - sizeof(VHID_REPORT_HEADER), code == VHID_IOCTL_FEATURE);
    return VhidComplete(irp, status, 0);
}

/* The control device's own requests; every other device's go to hidclass. */
static NTSTATUS NTAPI Create(PDEVICE_OBJECT device, PIRP irp)
{
    VHID_HUB* hub = VhidHub(device->DriverObject);
    return device == hub->control ? VhidComplete(irp, STATUS_SUCCESS, 0) : hub->hidCreate(device, irp);
}

static NTSTATUS NTAPI Close(PDEVICE_OBJECT device, PIRP irp)
{
    VHID_HUB* hub = VhidHub(device->DriverObject);
    return device == hub->control ? VhidComplete(irp, STATUS_SUCCESS, 0) : hub->hidClose(device, irp);
}

static NTSTATUS NTAPI DeviceControl(PDEVICE_OBJECT device, PIRP irp)
{
    VHID_HUB* hub = VhidHub(device->DriverObject);
    return device == hub->control ? ControlRequest(hub, irp) : hub->hidDeviceControl(device, irp);
}

static void NTAPI Unload(PDRIVER_OBJECT driver)
{
    VHID_HUB* hub = VhidHub(driver);
    UNICODE_STRING link;
    RtlInitUnicodeString(&link, VHID_CONTROL_LINK);
    IoDeleteSymbolicLink(&link);
    IoDeleteDevice(hub->control);
}

static NTSTATUS CreateControl(PDRIVER_OBJECT driver, VHID_HUB* hub)
{
    UNICODE_STRING name;
    UNICODE_STRING link;
    RtlInitUnicodeString(&name, VHID_CONTROL_DEVICE);
    RtlInitUnicodeString(&link, VHID_CONTROL_LINK);
    NTSTATUS status = IoCreateDevice(driver, 0, &name, FILE_DEVICE_UNKNOWN, 0, FALSE, &hub->control);
    if (!NT_SUCCESS(status)) {
        return status;
    }
    status = IoCreateSymbolicLink(&link, &name);
    if (!NT_SUCCESS(status)) {
        IoDeleteDevice(hub->control);
        return status;
    }
    hub->control->Flags |= DO_BUFFERED_IO;
    hub->control->Flags &= ~DO_DEVICE_INITIALIZING;
    return STATUS_SUCCESS;
}

NTSTATUS NTAPI DriverEntry(PDRIVER_OBJECT driver, PUNICODE_STRING registryPath)
{
    VHID_HUB* hub = VhidHub(driver);
    RtlZeroMemory(hub, sizeof(*hub));
    KeInitializeSpinLock(&hub->lock);
    InitializeListHead(&hub->pads);

    driver->MajorFunction[IRP_MJ_INTERNAL_DEVICE_CONTROL] = PadInternalControl;
    driver->MajorFunction[IRP_MJ_PNP] = PadPnp;
    driver->MajorFunction[IRP_MJ_POWER] = PadPower;
    driver->DriverExtension->AddDevice = AddDevice;
    driver->DriverUnload = Unload;

    HID_MINIDRIVER_REGISTRATION registration;
    RtlZeroMemory(&registration, sizeof(registration));
    registration.Revision = 1;
    registration.DriverObject = driver;
    registration.RegistryPath = registryPath;
    registration.DeviceExtensionSize = sizeof(VHID_PAD);
    registration.DevicesArePolled = FALSE;
    NTSTATUS status = HidRegisterMinidriver(&registration);
    if (!NT_SUCCESS(status)) {
        return status;
    }
    /* hidclass has taken these for the devices it makes; the control device keeps its own. */
    hub->hidCreate = driver->MajorFunction[IRP_MJ_CREATE];
    hub->hidClose = driver->MajorFunction[IRP_MJ_CLOSE];
    hub->hidDeviceControl = driver->MajorFunction[IRP_MJ_DEVICE_CONTROL];
    driver->MajorFunction[IRP_MJ_CREATE] = Create;
    driver->MajorFunction[IRP_MJ_CLOSE] = Close;
    driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = DeviceControl;
    return CreateControl(driver, hub);
}

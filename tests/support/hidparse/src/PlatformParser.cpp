#include "hidparse/PlatformParser.h"

#include <windows.h>

namespace hidparse {

namespace {

// The parser's description of a device (hidpddi.h, which mingw-w64 lacks).
struct CollectionDesc {
    USHORT usagePage;
    USHORT usage;
    UCHAR collectionNumber;
    UCHAR reserved[15];
    USHORT inputLength;
    USHORT outputLength;
    USHORT featureLength;
    USHORT preparsedDataLength;
    void* preparsedData;
};
struct ReportIds {
    UCHAR reportId;
    UCHAR collectionNumber;
    USHORT inputLength;
    USHORT outputLength;
    USHORT featureLength;
};
struct DeviceDesc {
    CollectionDesc* collectionDesc;
    ULONG collectionDescLength;
    ReportIds* reportIds;
    ULONG reportIdsLength;
    ULONG debug[8];
};
using GetCollectionDescription = LONG(WINAPI*)(const UCHAR*, ULONG, int, DeviceDesc*);
using FreeCollectionDescription = void(WINAPI*)(DeviceDesc*);

}  // namespace

std::optional<Description> PlatformParser::describe(const std::vector<std::uint8_t>& descriptor, std::string& why)
{
    // The bare name is not found: the driver folder is not on the search path. Loaded once, for
    // the life of the process.
    static const HMODULE parser = LoadLibraryW(L"C:\\windows\\system32\\drivers\\hidparse.sys");
    if (parser == nullptr) {
        why = "hidparse.sys cannot be loaded";
        return std::nullopt;
    }
    const auto get = reinterpret_cast<GetCollectionDescription>(
        reinterpret_cast<void*>(GetProcAddress(parser, "HidP_GetCollectionDescription")));
    const auto release = reinterpret_cast<FreeCollectionDescription>(
        reinterpret_cast<void*>(GetProcAddress(parser, "HidP_FreeCollectionDescription")));
    if (get == nullptr || release == nullptr) {
        why = "hidparse.sys lacks its exports";
        return std::nullopt;
    }
    DeviceDesc device{};
    const LONG status = get(descriptor.data(), static_cast<ULONG>(descriptor.size()), 0, &device);
    if (status < 0 || device.collectionDescLength == 0) {
        char hex[16];
        wsprintfA(hex, "%08lx", static_cast<unsigned long>(status));
        why = std::string("the platform's parser refuses the descriptor (status 0x") + hex + ")";
        return std::nullopt;
    }
    Description description;
    const CollectionDesc& first = device.collectionDesc[0];
    description.usagePage = first.usagePage;
    description.usage = first.usage;
    const auto* bytes = static_cast<const std::uint8_t*>(first.preparsedData);
    description.preparsed.assign(bytes, bytes + first.preparsedDataLength);
    for (ULONG i = 0; i < device.reportIdsLength; ++i) {
        const ReportIds& report = device.reportIds[i];
        description.reports[report.reportId] = {report.inputLength, report.outputLength, report.featureLength};
    }
    release(&device);
    return description;
}

}  // namespace hidparse

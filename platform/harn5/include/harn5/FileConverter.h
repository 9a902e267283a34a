#pragma once
// Turns a file of one recorded format into another for "--convert IN OUT", for a library that
// knows the formats (recorded touch devices, say), so that the host itself needs to know
// nothing about them.
#include <string>

namespace harn5 {

class FileConverter {
public:
    virtual ~FileConverter() = default;
    // Writes out from in and answers what it wrote, a line for the user; throws HarnException
    // saying what is wrong with in.
    virtual std::string convert(const std::string& in, const std::string& out) = 0;
};

}  // namespace harn5

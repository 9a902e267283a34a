#pragma once
// Type of a registered parameter: decides how its command-line values are checked.
namespace harn5 {

class DataType {
public:
    enum class Kind { Boolean, Uint32, StringArray };

    static const DataType& BOOLEAN();
    static const DataType& UINT32();
    static const DataType& STRINGARRAY();

    Kind kind() const;
    const char* name() const;                  // "BOOLEAN", "UINT32", "STRINGARRAY"
    bool operator==(const DataType& other) const;

private:
    explicit DataType(Kind kind);
    Kind m_kind;
};

}  // namespace harn5

#pragma once
// What the process-wide host takes from the system it runs on: where the language files are,
// the user's language, the system's own devices, unbuffered console streams.
namespace harn5 {

class Host;

class ProcessEnvironment {
public:
    static Host& configure(Host& host);
};

}  // namespace harn5

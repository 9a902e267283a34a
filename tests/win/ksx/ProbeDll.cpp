// Exists only to be loaded.
extern "C" __declspec(dllexport) int ksxProbe()
{
    return 42;
}

/* A GDI+ whose start-up always fails, put beside the module to prove that start-up goes on. */
#include <windows.h>

__declspec(dllexport) int WINAPI GdiplusStartup(ULONG_PTR* token, const void* input, void* output)
{
    (void)input;
    (void)output;
    *token = 0;
    return 1; /* GenericError */
}

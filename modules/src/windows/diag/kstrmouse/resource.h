#pragma once
// Resource ids of the module; the dialog Parts add theirs here.
#define IDR_MANIFEST 1
#define IDR_VERSION 1

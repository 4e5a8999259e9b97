#pragma once

// The C header of XCB's XKEYBOARD extension names a field "explicit", which C++ reserves. As a part of the
// system we may rename it.
#pragma GCC system_header
#define explicit explicitComponents
#include <xcb/xkb.h>
#undef explicit

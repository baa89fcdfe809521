// Picks the backend's own value types behind the contract of dom.h. Not installed.
#pragma once

#ifdef _WIN32
#include <quorvan/platform/msxml/dom_types.h>
#else
#include <quorvan/platform/embedded/dom_types.h>
#endif

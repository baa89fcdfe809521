// AttributeValue, AttributeCursor and NodeName: what the document service hands out, as dom.h
// states it. Their layout is the backend's own, which the build chose. Not installed.
#pragma once

#include <quorvan/xml/backend/values.h>

// The fixed parts of the pages, from the files in page/.
#pragma once

#include <string_view>

namespace quorvan::tool {

extern const std::string_view kPageTemplate;  // page.html
extern const std::string_view kPageStyle;     // page.css
extern const std::string_view kPageScript;    // page.js
extern const std::string_view kMovingScript;  // moving.js, of both pages
extern const std::string_view kPanelScript;   // panel.js, of both pages
extern const std::string_view kElementRowsScript;
extern const std::string_view kSvgSurfaceScript;
extern const std::string_view kPackedPictureScript;
extern const std::string_view kCanvasPainterScript;
extern const std::string_view kCanvasTouchScript;
extern const std::string_view kCanvasSurfaceScript;
extern const std::string_view kMeasuringScript;
extern const std::string_view kBarTableScript;
extern const std::string_view kReviewTemplate;  // review.html
extern const std::string_view kReviewScript;    // review.js

}  // namespace quorvan::tool

// Elements as the objects that a JSON drawing has for them.
#pragma once

#include <nlohmann/json.hpp>
#include <quorvan/quorvan.h>

namespace quorvan::test {

nlohmann::json toJson(const CKtZantoLine& line);
nlohmann::json toJson(const CKtZantoCircle& circle);
nlohmann::json toJson(const CKtZantoText& text);
nlohmann::json toJson(const CKtFilledPolygon& polygon);
nlohmann::json toJson(const CKtZantoMesh& mesh);
nlohmann::json toJson(const CKtZantoFormwork& formwork);
nlohmann::json toJson(const CKtZantoStraightBar& bar);
nlohmann::json toJson(const CKtZantoLBar& bar);
nlohmann::json toJson(const CKtZantoUBar& bar);
nlohmann::json toJson(const CKtZantoPin& pin);
nlohmann::json toJson(const CKtZantoPointBar& bar);
nlohmann::json toJson(const CKtZantoPolygonBar& bar);
nlohmann::json toJson(const CKtZantoFrameRect& frame);
nlohmann::json toJson(const CKtZantoFrameCirc& frame);
nlohmann::json toJson(const CKtZantoStirrup& stirrup);

}  // namespace quorvan::test

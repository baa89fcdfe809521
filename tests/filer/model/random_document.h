// Random documents: the library's own form, and what other programs and hands make of it.
#pragma once

#include <memory>
#include <string>

#include <tests/filer/model/random_source.h>
#include <tests/filer/model/script.h>

namespace quorvan::test::model {

/// Names that documents and scripts have in common.
std::string randomClassName(RandomSource& random);
std::string randomItemName(RandomSource& random);

/// A document with up to `classes` nodes below its root.
std::shared_ptr<const Sample> randomDocument(RandomSource& random, int classes);

/// A document to search with: its first class element is made from one of `searched`, with items
/// dropped, changed and added.
std::shared_ptr<const Sample> randomPattern(RandomSource& random, const Node& searched);

}  // namespace quorvan::test::model

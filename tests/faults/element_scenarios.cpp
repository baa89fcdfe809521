#include <memory>

#include <tests/elements/element_models.h>
#include <tests/faults/scenarios.h>
#include <tests/support/transfer_text.h>

namespace quorvan::test {

namespace {

// Reading starts from a file that holds the element whole behind what the stage had.
template <class Element>
void putElementIntoFile(Stage& stage) {
  stage.filer.closeFiler();
  stage.filer = CKtFiler();
  const std::string element = classElement(ElementModel<Element>::kClassName, 1,
                                           joined(itemTexts<Element>(sampleValues<Element>(0))));
  std::string file = Stage::formerFile();
  file.insert(file.find("</Document>"), element);
  writeBytes(kStageFile, file);
  stage.filer.newFiler(kStagePath);
}

template <class Element>
ElementScenario scenarioOf() {
  const auto element = std::make_shared<Element>(made<Element>(sampleValues<Element>(0)));
  const std::string name = ElementModel<Element>::kClassName;
  return {name,
          {name + "::fileOut", [](Stage&) {},
           [element](Stage& stage) { return element->fileOut(&stage.filer); }},
          {name + "::fileIn", putElementIntoFile<Element>, [](Stage& stage) {
             Element read;
             return read.fileIn(&stage.filer);
           }}};
}

template <class... Element>
std::vector<ElementScenario> scenariosOf(testing::Types<Element...>) {
  return {scenarioOf<Element>()...};
}

}  // namespace

std::vector<ElementScenario> elementScenarios() {
  return scenariosOf(ElementClasses());
}

}  // namespace quorvan::test

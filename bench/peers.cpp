#include <bench/peers.h>

namespace bench {

const std::vector<Peer>& peers() {
  static const std::vector<Peer> all{
      {"limit (no tree)", writeLimit, readLimit},
      {"quorvan", writeQuorvan, readQuorvan},
      {"flat reading", writeQuorvan, readFlat},
      {"pugixml", writePugixml, readPugixml},
      {"tinyxml2", writeTinyxml2, readTinyxml2},
      {"libxml2", writeLibxml2, readLibxml2},
      {"libxml2 reader", writeLibxml2, readLibxml2Reader},
      {"Xerces-C DOM", writeXerces, readXerces},
  };
  return all;
}

}  // namespace bench

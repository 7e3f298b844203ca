// Sort routines that the descriptions of the tests name.

#include "AttributeMap.h"

#define EXPORTED __attribute__((visibility("default")))

extern "C" {

// By the number of the member "First".
EXPORTED int byFirst(AttributeMap& first, AttributeMap& second) {
  int left = 0;
  int right = 0;
  first.loadMapVariable("First", left, nullptr);
  second.loadMapVariable("First", right, nullptr);
  return left - right;
}

}  // extern "C"

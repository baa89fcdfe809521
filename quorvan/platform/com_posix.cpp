#include <quorvan/platform/com.h>
#include <quorvan/platform/com_balance.h>

namespace quorvan::platform {

namespace {

thread_local int balance = 0;
thread_local unsigned int initializations = 0;

}  // namespace

void initializeCom() noexcept {
  ++balance;
  ++initializations;
}

void uninitializeCom() noexcept {
  --balance;
}

int comBalance() noexcept {
  return balance;
}

unsigned int comInitializations() noexcept {
  return initializations;
}

}  // namespace quorvan::platform

#include <quorvan/platform/com.h>
#include <quorvan/platform/com_balance.h>

namespace quorvan::platform {

namespace {

thread_local int balance = 0;

}  // namespace

void initializeCom() noexcept {
  ++balance;
}

void uninitializeCom() noexcept {
  --balance;
}

int comBalance() noexcept {
  return balance;
}

}  // namespace quorvan::platform

#include <quorvan/errors/message_hook.h>

#include <quorvan/platform/message_box.h>

QuorvanMessageHook quorvanSetMessageHook(QuorvanMessageHook hook) {
  return quorvan::setMessageBoxHook(hook);
}

#include "app/FontWarmUp.h"

#include <csignal>
#include <fontconfig/fontconfig.h>

namespace zelmo {

FontWarmUp::FontWarmUp()
    : m_thread([] {
          // Signals are for the main thread.
          sigset_t all;
          sigfillset(&all);
          pthread_sigmask(SIG_SETMASK, &all, nullptr);
          FcInit();
      }) {}

FontWarmUp::~FontWarmUp() {
    m_thread.join();
}

} // namespace zelmo

#include <fcntl.h>
#include <unistd.h>

#include "Call.h"
#include "Player.h"
#include "Script.h"

namespace {

// One write, so that the lines of calls that run at once do not mix.
void record(const Call &call, const Script &script) {
  const std::string path = script.path + ".calls";
  const std::string line = call.asJson() + '\n';
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  if (file < 0) return;
  writeAll(file, line);
  ::close(file);
}

}  // namespace

int main(int argc, char **argv) {
  const Call call = Call::of(argc, argv);
  const std::optional<Script> script = Script::find(argc > 0 ? argv[0] : nullptr);
  if (script) record(call, *script);
  const Script none;
  return Player(call, script ? *script : none).play();
}

#include "HelpTexts.h"

#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

QString programHelp() {
  return worded(
      uR"(
Pours movies (mkv, mp4, mov, ogm, wmv, mpg, flv, webm, ts) into MP4 files that
phones, televisions and consoles play. The video is copied as it is, one audio
track is copied or converted, text subtitles are kept.

  probe      tells what movies hold
  convert    converts movies, one after the other
  settings   shows and changes how conversions are made

"decant COMMAND --help" tells more about one of them. Without a command the
window opens, with the FILEs added.

  --help     prints this text
  --version  prints the version

A FILE whose name begins with "-" goes after "--".
)"_s);
}

QString probeHelp() {
  return worded(
      uR"(
Tells what each FILE holds: size, running time, video, audio tracks with their
numbers, subtitles, and what there is to know before it is converted. The track
marked with "*" is the one that a conversion takes. Nothing is written.

  --json     prints one JSON object a line, one for each FILE

Ends with 0, or with 1 when any FILE can't be converted.
)"_s);
}

QString convertHelp() {
  return worded(
      uR"(
Converts the movies among the FILEs, one after the other, each into a file next
to it. Nothing is ever overwritten: where the name is taken, a number is added.
A subtitle file (srt, ass, ssa, smi, sub) among the FILEs is put into the movie
of the same name.

  -o DIR           writes into this folder, which is made when it is missing
  -r               takes folders, too, with all that is in them; hidden files
                   and links to folders are left out
  --set KEY=VALUE  changes a setting for this run only; can be given often
  --audio N        takes the audio track that probe prints as "#N"
  --subtitle FILE  puts this subtitle file into the one movie given
  --dry-run        prints the command lines and writes nothing
  --json           prints one JSON object a line, as things happen

Results go to standard output, all else to standard error. Ends with 0 when all
is done, 1 when any file failed or was refused, 2 when the command line is
wrong. An interrupt stops the running conversion, removes its unfinished output
and keeps what is finished.
)"_s);
}

QString settingsHelp() {
  return worded(
      uR"(
Shows and changes the stored settings.

  list             prints every setting with its value
  get KEY          prints the value alone
  set KEY VALUE    stores a value; booleans are 0 or 1, choices are numbers
                   counted from 0
  reset KEY...     goes back to the default of these settings
  reset --all      goes back to the default of all but the destination folders
  --json           prints the list as one JSON object

Ends with 0, with 1 when the settings can't be written, and with 2 for a key
that does not exist or a value that is not allowed.
)"_s);
}

}  // namespace

QString usageText(Topic topic) {
  switch (topic) {
    case Topic::Probe:
      return worded(u"usage: decant probe [--json] FILE…\n"_s);
    case Topic::Convert:
      return worded(
          u"usage: decant convert [-o DIR] [-r] [--set KEY=VALUE]… [--audio N] [--subtitle FILE] "
          u"[--dry-run] [--json] FILE…\n"_s);
    case Topic::Settings:
      return worded(
          u"usage: decant settings list [--json] | get KEY | set KEY VALUE | reset KEY… | reset "
          u"--all\n"_s);
    case Topic::Program:
      break;
  }
  return worded(
      u"usage: decant [FILE…] | probe … | convert … | settings … | --help | --version\n"_s);
}

QString helpText(Topic topic) {
  QString text = usageText(topic);
  switch (topic) {
    case Topic::Probe:
      return text += probeHelp();
    case Topic::Convert:
      return text += convertHelp();
    case Topic::Settings:
      return text += settingsHelp();
    case Topic::Program:
      break;
  }
  return text += programHelp();
}

}  // namespace decant

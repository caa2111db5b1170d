#include "ProbeAlerts.h"

#include "Format.h"
#include "Text.h"

namespace decant {

using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::makeString;

namespace {

ostrak::Alert plainAlert(const ProbeSource &source, const QString &message) {
  ostrak::Alert alert;
  alert.title = source.appName;
  alert.message = message;
  alert.buttons = {localized(u"OK"_s)};
  alert.subject = source.fileURL.toLocalFile();
  return alert;
}

ostrak::Alert warning(const ProbeSource &source, const QString &identifier,
                      const QString &message) {
  ostrak::Alert alert = plainAlert(source, message);
  alert.identifier = identifier;
  alert.title = localized(u"Warning"_s);
  alert.control = ostrak::Alert::Control::Suppression;
  alert.checkboxTitle = localized(u"Don't warn again"_s);
  alert.value = 0;
  return alert;
}

}  // namespace

QString sourceName(const ProbeSource &source) {
  QString path = source.fileURL.toLocalFile();
  while (path.size() > 1 && path.endsWith(u'/'))
    path.chop(1);
  return path.sliced(path.lastIndexOf(u'/') + 1);
}

ProbeAlert aliasAlert(const ProbeSource &source) {
  const QString text = localized(
      u"The file '%@' is an alias. We can't open the target of the alias because of limitations "
      "in Apple's 'sandbox'. Please complaint to Apple if you want Aliases to work in sandboxed "
      "apps."_s);
  return {warning(source, u"warningalias"_s, makeString(text, sourceName(source))), true};
}

ProbeAlert refusedCodecAlert(const ProbeSource &source, const QString &codec) {
  const QString text = localized(
      u"Warning: the file '%@' contains an invalid video codec (%@) and can't be converted by %@."_s);
  return {plainAlert(source, makeString(text, sourceName(source), codec, source.appName)), true};
}

ProbeAlert unexpectedCodecAlert(const ProbeSource &source, const QString &codec) {
  const QString text = localized(
      u"The file '%@' doesn't contain a H264/MPEG4 video track (videocodec: %@) so the result may "
      "not be playable."_s);
  return {warning(source, u"wrongvideowarning"_s, makeString(text, sourceName(source), codec)),
          false};
}

ProbeAlert tenBitAlert(const ProbeSource &source) {
  const QString text = localized(
      u"The file '%@' contains a 10-bit video track so the result will not be playable on the "
      "iPhone or iPad. It should still play with other players (VLC/Mplayer)."_s);
  return {warning(source, u"10bitvideowarning"_s, makeString(text, sourceName(source))), false};
}

ProbeAlert highResolutionAlert(const ProbeSource &source) {
  const QString text = localized(
      u"The file '%@' will probably not play back fine on the iPhone/iPad as it has a too large "
      "resolution. You can try converting the produced MP4 file using 'QuickTime Player' to a "
      "1080p M4V file to view this video on iOS."_s);
  return {warning(source, u"warningtoohighres"_s, makeString(text, sourceName(source))), true};
}

ProbeAlert referenceFramesAlert(const ProbeSource &source) {
  const QString text = localized(
      u"The file '%@' will probably not play back fine on the 'Playstation 3' or other devices as "
      "it contains more 'reference frames' than the PS3 supports. You can try converting the "
      "produced MP4 file using 'QuickTime Player' to a 720p M4V file to view this video on the "
      "PS3."_s);
  return {warning(source, u"warningtoomanyrefframes"_s, makeString(text, sourceName(source))),
          true};
}

ProbeAlert noVideoAlert(const ProbeSource &source) {
  const QString text = localized(
      u"Warning: the file '%@' doesn't seem to be a valid MKV and can't be converted by %@. If you "
      "are sure the file is valid please contact us regarding this issue."_s);
  return {plainAlert(source, makeString(text, sourceName(source), source.appName)), true};
}

ProbeAlert refusedFileAlert(const ProbeSource &source, FileRefusal why) {
  QString text;
  switch (why) {
    case FileRefusal::Missing:
      text = localized(
          u"The file '%@' does not exist. Please check its name and folder, then add it again."_s);
      break;
    case FileRefusal::Folder:
      text = localized(u"'%@' is a folder. Please add the movie files in it instead."_s);
      break;
    case FileRefusal::NotRegular:
      text = localized(
          u"'%@' is not a regular file. Please save the movie as a file on disk and add that."_s);
      break;
    case FileRefusal::Unreadable:
      text = localized(
          u"The file '%@' cannot be read. Please change its permissions, then add it again."_s);
      break;
  }
  return {plainAlert(source, makeString(text, sourceName(source))), true};
}

ProbeAlert toolMissingAlert(const ProbeSource &source, const QString &tool) {
  const QString text = localized(
      u"The file '%@' can't be read because the tool '%@' is missing or cannot be run. Please "
      "install ffmpeg, or install %@ again."_s);
  return {plainAlert(source, makeString(text, sourceName(source), tool, source.appName)), true};
}

ProbeAlert processRefusedAlert(const ProbeSource &source) {
  ostrak::Alert alert = plainAlert(
      source,
      localized(u"A basic system capability failed (posix_spawn). Please reboot your system "
                "and try again."_s));
  alert.buttons = {localized(u"Exit"_s)};
  return {alert, false};
}

}  // namespace decant

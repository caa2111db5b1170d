#pragma once

#include <QStringList>
#include <optional>

#include "AudioTrackDescription.h"

namespace decant {

// The languages of the user as three-letter bibliographic codes, most preferred first: a two-letter
// identifier is looked up, anything else stays as it is.
[[nodiscard]] QStringList preferredLanguages3Letter(const QStringList &identifiers);

// The identifiers that the user chose, reduced from an environment: "de_DE.UTF-8" gives "de";
// LANGUAGE wins where set; "C" or none counts as "en".
[[nodiscard]] QStringList preferredLanguageIdentifiers(const QString &language,
                                                       const QString &lcAll,
                                                       const QString &lcMessages,
                                                       const QString &lang);

// Index of the track to preselect; nothing when there is none. `defaultAudio` is the setting of
// that name: 0 takes `preferredLanguages`, 2 to 8 fixed languages. Throws ostrak::RangeError for
// others.
[[nodiscard]] std::optional<int> bestAudioTrack(const QList<AudioTrackDescription> &tracks,
                                                const QStringList &preferredLanguages,
                                                int defaultAudio);

}  // namespace decant

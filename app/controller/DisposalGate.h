#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "File.h"
#include "SourceDisposal.h"

namespace decant {

class ConversionJob;

// Holds a wish to dispose of a source back while another queued job still has to read it. The wish
// is let through when the last of them has ended or left, unless one of them failed, whichever that
// was: then the source stays. A job that is added after that begins anew. Two paths to one file are
// one source. No operation depends on how many jobs there are.
// Main thread.
class DisposalGate final {
 public:
  // A job that will read its source, the file `source`.
  void jobAdded(const ConversionJob &job, const std::optional<ostrak::FileIdentity> &source);
  // It reads its source no longer: it has finished or failed.
  void jobEnded(const ConversionJob &job, bool failed);
  // It leaves the queue; wishes for it are taken until the next takeReady.
  void jobLeft(const ConversionJob &job);
  // After a success of `job`.
  void wish(const ConversionJob &job, bool deleteOutright);
  // Wishes that nothing holds back any more; each is given once.
  [[nodiscard]] QList<DisposalRequest> takeReady();
  // Whether takeReady would give something.
  [[nodiscard]] bool hasReady() const;

 private:
  struct Source {
    int readers = 0;
    bool failed = false;
    std::optional<DisposalRequest> wish;
    [[nodiscard]] bool mayGo() const { return wish && !failed; }
  };
  void stopReading(const ConversionJob &job);

  struct Reader {
    ostrak::FileIdentity source;
    bool reading = true;
  };
  std::unordered_map<const ConversionJob *, Reader> m_readers;
  QHash<ostrak::FileIdentity, Source> m_sources;
  QSet<ostrak::FileIdentity> m_unread;  // sources without readers, until the next takeReady
  std::unordered_set<const ConversionJob *> m_left;
};

}  // namespace decant

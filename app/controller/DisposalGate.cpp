#include "DisposalGate.h"

#include <algorithm>

#include "ConversionJob.h"
#include "Logging.h"

using namespace Qt::StringLiterals;

namespace decant {

void DisposalGate::jobAdded(const ConversionJob &job,
                            const std::optional<ostrak::FileIdentity> &source) {
  if (!source) return;
  // A job that is gone may have stood at the same address.
  m_left.erase(&job);
  m_readers.insert_or_assign(&job, Reader{*source, true});
  ++m_sources[*source].readers;
  m_unread.remove(*source);
}

void DisposalGate::stopReading(const ConversionJob &job) {
  const auto reader = m_readers.find(&job);
  if (reader == m_readers.end() || !reader->second.reading) return;
  reader->second.reading = false;
  const ostrak::FileIdentity &source = reader->second.source;
  if (--m_sources[source].readers == 0) m_unread.insert(source);
}

void DisposalGate::jobEnded(const ConversionJob &job, bool failed) {
  stopReading(job);
  const auto reader = m_readers.find(&job);
  if (!failed || reader == m_readers.end()) return;
  m_sources[reader->second.source].failed = true;
}

void DisposalGate::jobLeft(const ConversionJob &job) {
  stopReading(job);
  m_left.insert(&job);
}

void DisposalGate::wish(const ConversionJob &job, bool deleteOutright) {
  const auto reader = m_readers.find(&job);
  if (reader == m_readers.end()) return;
  const MKVFileInfo &record = job.fileInfo();
  Source &source = m_sources[reader->second.source];
  QStringList destinations = source.wish ? source.wish->destinations : QStringList();
  destinations.append(record.destinationURL.toLocalFile());
  source.wish = DisposalRequest{record.fileURL.toLocalFile(), reader->second.source, destinations,
                                record.runtimeSeconds, deleteOutright};
}

QList<DisposalRequest> DisposalGate::takeReady() {
  QList<DisposalRequest> ready;
  for (const ostrak::FileIdentity &identity : m_unread) {
    const Source source = m_sources.take(identity);
    if (source.mayGo()) ready.append(*source.wish);
    if (source.wish && source.failed)
      ostrak::tk_log_level(4, u"Warning: the source %@ stays: another conversion of it failed"_s,
                           source.wish->source);
  }
  m_unread.clear();
  for (const ConversionJob *job : m_left)
    m_readers.erase(job);
  m_left.clear();
  return ready;
}

bool DisposalGate::hasReady() const {
  return std::ranges::any_of(m_unread, [this](const ostrak::FileIdentity &identity) {
    return m_sources.value(identity).mayGo();
  });
}

}  // namespace decant

#include "ConvertInput.h"

#include <QDir>
#include <algorithm>

#include "FolderWalk.h"
#include "GivenFile.h"
#include "Logging.h"
#include "Ostrak.h"
#include "Printable.h"
#include "SortedFiles.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

enum class Kind { Movie, Subtitle, Other };

Kind kindOf(const QString &path) {
  const QString extension = lowerExtension(path);
  if (movieFileTypes().contains(extension)) return Kind::Movie;
  return subtitleFileTypes().contains(extension) ? Kind::Subtitle : Kind::Other;
}

// Also one that can't be read, which is told in other words first.
bool isPictures(const QString &path) {
  return lowerExtension(path) == "sub"_L1 && !isTextSubtitle(path);
}

// Why a subtitle file can't be taken; null when it can.
QString whyNoSubtitle(const QString &path) {
  const QString unreadable = whyNotReadable(path);
  if (!unreadable.isNull()) return unreadable;
  if (kindOf(path) == Kind::Movie)
    return worded(u"'%@' is a movie and no subtitle file."_s, printable(path));
  if (isPictures(path))
    return worded(u"The subtitles in '%@' are pictures; only text can be taken."_s,
                  printable(path));
  return {};
}

QString whyNoMovie(const QString &path) {
  const QString unreadable = whyNotReadable(path);
  if (!unreadable.isNull()) return unreadable;
  return worded(u"'%@' is not taken; movies end in %@, subtitle files in %@."_s, printable(path),
                movieFileTypes().join(u", "_s), subtitleFileTypes().join(u", "_s));
}

class Sorter final {
 public:
  Sorter(const Invocation &invocation, QByteArray workingFolder)
      : m_invocation(invocation), m_workingFolder(std::move(workingFolder)) {}

  ConvertInput sorted() {
    for (const QByteArray &name : m_invocation.files) {
      const GivenFile file = givenFile(name, m_workingFolder);
      if (!file.refused() && isFolder(file.path))
        addFolder(name, file);
      else
        add(file);
    }
    takeSubtitle();
    const bool anyRefused = std::any_of(m_input.files.cbegin(), m_input.files.cend(),
                                        [](const InputFile &file) { return file.failure; });
    if (m_input.usageProblem.isNull() && m_movies == 0 && !anyRefused)
      m_input.usageProblem = noMovie();
    return m_input;
  }

 private:
  [[nodiscard]] QString noMovie() const {
    QString problem = worded(u"There is no movie among the FILEs."_s);
    if (!m_folders.isEmpty()) problem += u" ("_s + m_folders.join(u", "_s) + u')';
    return problem;
  }

  void addFolder(const QByteArray &name, const GivenFile &file) {
    if (!m_invocation.recursive) {
      refuse(file.path, worded(u"'%@' is a folder; with -r the movies in it are converted."_s,
                               printable(file.path)));
      return;
    }
    m_folders.append(u'\'' + printable(file.path) + u'\'');
    const QList<GivenFile> below = filesBelow(name, m_workingFolder);
    for (const GivenFile &each : below) {
      if (!isLeftOut(each)) add(each);
    }
  }

  // Nobody asked for what merely lies beside the movies.
  static bool isLeftOut(const GivenFile &found) {
    if (found.refused() || !isPictures(found.path) || !whyNotReadable(found.path).isNull())
      return false;
    ostrak::tk_log_level(5, u"Info: the subtitles in %@ are pictures and left out"_s, found.path);
    return true;
  }

  void add(const GivenFile &file) {
    if (file.refused()) {
      refuse(file.path, file.refusal);
      return;
    }
    switch (kindOf(file.path)) {
      case Kind::Movie:
        ++m_movies;
        m_input.files.append({file.path, {}});
        break;
      case Kind::Subtitle:
        addSubtitle(file.path);
        break;
      case Kind::Other:
        refuse(file.path, whyNoMovie(file.path));
        break;
    }
  }

  void addSubtitle(const QString &path) {
    const QString why = whyNoSubtitle(path);
    if (why.isNull())
      m_input.subtitles.append(path);
    else
      refuse(path, why);
  }

  void refuse(const QString &source, const QString &text) {
    m_input.files.append({source, refusedFailure(text)});
  }

  // The subtitle file that is named for the one movie; where it can't be taken, the movie is
  // refused, since without it the result would not be what was asked for.
  void takeSubtitle() {
    if (!m_invocation.subtitle) return;
    if (m_movies > 1) {
      m_input.usageProblem = worded(u"--subtitle goes with one movie, not with %i."_s, m_movies);
      return;
    }
    const GivenFile file = givenFile(*m_invocation.subtitle, m_workingFolder);
    const QString why = file.refused() ? file.refusal : whyNoSubtitle(file.path);
    m_input.subtitle = file.path;
    leaveOutOthers(file.path);
    for (InputFile &movie : m_input.files) {
      if (!movie.failure && !why.isNull()) movie.failure = refusedFailure(why);
    }
  }

  // Two subtitle files can't go into one movie: the one that was named is meant.
  void leaveOutOthers(const QString &named) {
    QStringList others;
    for (const QString &path : std::as_const(m_input.subtitles)) {
      if (QDir::cleanPath(path) != QDir::cleanPath(named))
        others.append(u'\'' + printable(path) + u'\'');
    }
    m_input.subtitles.clear();
    if (!others.isEmpty())
      m_input.note = worded(u"Left out, since --subtitle names the subtitles to take: %@"_s,
                            others.join(u", "_s));
  }

  const Invocation &m_invocation;
  QByteArray m_workingFolder;
  ConvertInput m_input;
  QStringList m_folders;  // as they are shown
  int m_movies = 0;
};

}  // namespace

FileFailure refusedFailure(const QString &text) {
  return {u"refused"_s, ostrak::tk->appName(), text};
}

ConvertInput convertInput(const Invocation &invocation, const QByteArray &workingFolder) {
  return Sorter(invocation, workingFolder).sorted();
}

}  // namespace decant

#include "PropertyList.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QLocale>
#include <QXmlStreamWriter>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// Writes one value after the other; `problem` says why it stopped.
class Writer final {
 public:
  std::optional<QByteArray> document(const QVariant &root) {
    m_xml.setAutoFormatting(true);
    m_xml.writeStartDocument();
    m_xml.writeDTD(
        u"<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
        u"\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_s);
    m_xml.writeStartElement(u"plist"_s);
    m_xml.writeAttribute(u"version"_s, u"1.0"_s);
    write(root);
    m_xml.writeEndDocument();
    // The writer itself finds texts that XML cannot hold.
    if (m_problem.isNull() && m_xml.hasError()) m_problem = u"text cannot be written as XML"_s;
    if (!m_problem.isNull()) return std::nullopt;
    return m_bytes;
  }

  [[nodiscard]] const QString &problem() const { return m_problem; }

 private:
  void write(const QVariant &value) {
    switch (value.typeId()) {
      case QMetaType::QString:
        return m_xml.writeTextElement(u"string"_s, value.toString());
      case QMetaType::Bool:
        return m_xml.writeEmptyElement(value.toBool() ? u"true"_s : u"false"_s);
      case QMetaType::Int:
      case QMetaType::UInt:
      case QMetaType::LongLong:
      case QMetaType::ULongLong:
        return m_xml.writeTextElement(u"integer"_s, value.toString());
      case QMetaType::Double:
      case QMetaType::Float:
        return m_xml.writeTextElement(
            u"real"_s, QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest));
      case QMetaType::QByteArray:
        return m_xml.writeTextElement(u"data"_s,
                                      QString::fromLatin1(value.toByteArray().toBase64()));
      case QMetaType::QDateTime:
        return m_xml.writeTextElement(u"date"_s, value.toDateTime().toUTC().toString(Qt::ISODate));
      case QMetaType::QStringList:
      case QMetaType::QVariantList:
        return writeList(value.toList());
      case QMetaType::QVariantMap:
        return writeDictionary(value.toMap());
      default:
        m_problem = u"type "_s +
                    QString::fromLatin1(value.isValid() ? value.typeName() : "nothing") +
                    u" has no place in a property list"_s;
    }
  }

  void writeList(const QVariantList &list) {
    m_xml.writeStartElement(u"array"_s);
    for (const QVariant &element : list) {
      write(element);
    }
    m_xml.writeEndElement();
  }

  void writeDictionary(const QVariantMap &dictionary) {
    m_xml.writeStartElement(u"dict"_s);
    for (auto it = dictionary.cbegin(); it != dictionary.cend(); ++it) {
      m_xml.writeTextElement(u"key"_s, it.key());
      write(it.value());
    }
    m_xml.writeEndElement();
  }

  QByteArray m_bytes;
  QXmlStreamWriter m_xml{&m_bytes};
  QString m_problem;
};

std::optional<QByteArray> writtenAsXml(const QVariant &root) {
  Writer writer;
  auto bytes = writer.document(root);
  if (!bytes) {
    const QByteArray shown = QJsonDocument::fromVariant(root).toJson(QJsonDocument::Compact);
    tk_log_level(3, u"Error: XML write fails! input %@ data %@ err %@"_s, QString::fromUtf8(shown),
                 QString(), writer.problem());
  }
  return bytes;
}

}  // namespace

std::optional<QByteArray> XMLData(const QVariantMap &dictionary) {
  return writtenAsXml(dictionary);
}

std::optional<QByteArray> XMLData(const QVariantList &list) {
  return writtenAsXml(list);
}

}  // namespace ostrak

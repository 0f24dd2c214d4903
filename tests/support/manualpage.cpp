#include "tests/support/manualpage.h"

#include <QFile>
#include <QHash>
#include <QXmlStreamReader>

namespace support {

namespace {

class Reader
{
public:
    explicit Reader(const QByteArray &content)
        : m_xml(content)
    {
    }

    Page read()
    {
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement)
                open();
            else if (token == QXmlStreamReader::EndElement)
                close();
            else if (token == QXmlStreamReader::Characters)
                take(m_xml.text().toString());
        }
        if (m_xml.hasError())
            m_page.error = QStringLiteral("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString());
        return m_page;
    }

private:
    void open()
    {
        const QString tag = m_xml.name().toString();
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const char *name : {"href", "src"}) {
            if (attributes.hasAttribute(QLatin1String(name)))
                m_page.targets.append(attributes.value(QLatin1String(name)).toString());
        }
        if (attributes.hasAttribute(QLatin1String("id")))
            m_page.ids.append(attributes.value(QLatin1String("id")).toString());
        if (tag == QLatin1String("br"))
            take(QStringLiteral(" "));
        if (tag == QLatin1String("tr"))
            m_row = Row();
        if (tag == QLatin1String("td"))
            m_cell.clear();
        m_inMessage = tag == QLatin1String("code")
            || attributes.value(QLatin1String("class")) == QLatin1String("message")
            || (m_inMessage && tag == "br");
        if (tag == QLatin1String("main"))
            m_page.text.clear(); // the contents beside it name every chapter
        m_heading = m_heading || tag == QLatin1String("h1");
        if (m_inMessage && tag != QLatin1String("br"))
            m_message.clear();
    }

    void close()
    {
        const QString tag = m_xml.name().toString();
        if (tag == QLatin1String("h1"))
            m_heading = false;
        if (tag == QLatin1String("td"))
            m_row.cells.append(m_cell.simplified());
        if (tag == QLatin1String("tr") && !m_row.cells.isEmpty())
            m_page.rows.append(m_row);
        if (m_inMessage && tag != QLatin1String("br")) {
            if (m_row.cells.isEmpty())
                m_row.messages.append(m_message.simplified());
            m_inMessage = false;
        }
    }

    void take(const QString &text)
    {
        m_page.text += text;
        m_cell += text;
        if (m_inMessage)
            m_message += text;
        if (m_heading)
            m_page.heading += text;
    }

    QXmlStreamReader m_xml;
    Page m_page;
    Row m_row;
    QString m_cell;
    QString m_message;
    bool m_inMessage = false;
    bool m_heading = false;
};

} // namespace

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Links lead to the same few pages again and again.
const Page &readPage(const QString &path)
{
    static QHash<QString, Page> pages;
    if (!pages.contains(path))
        pages.insert(path, Reader(contentOf(path)).read());
    return pages[path];
}

} // namespace support

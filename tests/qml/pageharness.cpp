#include "tests/qml/pageharness.h"

#include <QQmlComponent>

namespace {

const char kBeforeContent[] = R"(
import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"

ApplicationWindow {
    id: mainWindow
    property Item pageItem: page
    property string sourcePath: "qrc:/img/pc/"
    width: 1366
    height: 768
    font.pixelSize: 18
    FontLoader { id: hlFontEnRegular; source: "qrc:/Carlito-Regular.ttf" }
    ListModel { id: listResolution }
    Component.onCompleted: {
        var names = ["None", "PAL", "NTSC", "720p50", "720p59.94", "720p60", "1080i50", "1080i59.94", "1080i60",
            "1080p23.98", "1080p24", "1080p25", "1080p29.97", "1080p30", "1080p50", "1080p59.94", "1080p60",
            "2160p23.98", "2160p24", "2160p25", "2160p29.97", "2160p30", "2160p50", "2160p59.94", "2160p60",
            "2160wp23.98", "2160wp24", "2160wp25", "2160wp29.97", "2160wp30", "2160wp50", "2160wp59.94", "2160wp60"]
        for (var i = 0; i < names.length; ++i)
            listResolution.append({ modelData: names[i], value: i })
    }
    Image { source: "qrc:/img/pc/img_bg_02_dashboard.png" }
    Image {
        x: 176
        y: 148
        width: 1190
        height: 620
        source: "qrc:/img/pc/img_bg_content_dashbpard.png"
)";

const char kAfterContent[] = "\n    }\n}\n";

} // namespace

PageHarness::PageHarness(const QByteArray &content, QObject *mainObject)
{
    publish(m_engine, mainObject ? mainObject : &facade);
    QQmlComponent component(&m_engine);
    component.setData(kBeforeContent + content + kAfterContent, QUrl(QStringLiteral("qrc:/PageHarness.qml")));
    m_root.reset(component.create());
    if (!m_root)
        qFatal("%s", qPrintable(component.errorString()));
    window = qobject_cast<QQuickWindow *>(m_root.get());
    page = m_root->property("pageItem").value<QQuickItem *>();
}

PageHarness::~PageHarness() = default;

QQuickItem *PageHarness::itemOfDocument() const
{
    return page->childItems().isEmpty() ? page : page->childItems().constFirst();
}

QPoint PageHarness::handleAt(const QString &row, int value) const
{
    QQuickItem *slider = item(row + QStringLiteral(".itemSlider"));
    const qreal low = slider->property("minimumValue").toReal();
    const qreal high = slider->property("maximumValue").toReal();
    return at(slider, 11 + (slider->width() - 22) * (value - low) / (high - low), slider->height() / 2);
}

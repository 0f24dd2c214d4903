// The settings file in whatever state it is found, read by the facade and written by it and by the translator. Reading
// changes no byte of it; what an operator saves, and the language, are there at the next start, whatever the file was
// before; and the automatic connection ends within its waits.

#include "control/panelstate.h"
#include "shell/qmltranslator.h"
#include "tests/control/devicebehind.h"
#include "tests/fuzz/neighbours.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

// The parts of a network address, or any text.
QString text(Script &script)
{
    const uint kind = script.byte();
    if (kind % 4 != 0)
        return QString::fromUtf8(script.counted());
    return QStringLiteral("192.168.72.%1").arg(Neighbours::lastPart(static_cast<int>(kind / 4)));
}

QByteArray fileBytes()
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A time that no version of the file has had: the toolkit reads a file anew only when its time or its size is another.
void makeNews()
{
    static time_t second = 1000;
    const timespec times[] = {{++second, 0}, {second, 0}};
    ::utimensat(AT_FDCWD, QFile::encodeName(settingsPath()).constData(), times, 0);
}

void writeFile(const QByteArray &bytes)
{
    QFile file(settingsPath());
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    file.close();
    makeNews();
}

// The panel's working folder for one input: the settings file lies beside it. What the fuzzer is given on its command
// line is meant from where it was started.
class WorkingFolder
{
public:
    WorkingFolder()
        : before(QDir::currentPath())
    {
        static const QTemporaryDir made(QStringLiteral("/dev/shm/fuzz-settings-XXXXXX"));
        static const QDir own(made.path());
        static const bool isMade =
            own.mkpath(QStringLiteral("work/here")) && own.mkpath(QStringLiteral("halvorine/qkv720"));
        require(isMade && QDir::setCurrent(own.filePath(QStringLiteral("work/here"))));
    }
    ~WorkingFolder() { QDir::setCurrent(before); }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
    const QString before;
};

std::unique_ptr<mainControl> startPanel()
{
    auto control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    return control;
}

struct Form
{
    explicit Form(Script &script)
        : netcard(text(script))
        , mac(text(script))
        , name(text(script))
        , mode(script.flag() ? 1 : 0)
        , address(text(script))
        , mask(text(script))
        , gateway(text(script))
        , primaryDns(text(script))
        , secondaryDns(text(script))
    {
    }

    const QString netcard;
    const QString mac;
    const QString name;
    const int mode;
    const QString address;
    const QString mask;
    const QString gateway;
    const QString primaryDns;
    const QString secondaryDns;
};

void requireStored(const mainControl &control, const Form &form)
{
    require(control.initNetcard == form.netcard && control.initMac == form.mac);
    require(control.initHostname == form.name && control.initIpaddr == form.address);
    require(control.initMask == form.mask && control.initGateway == form.gateway);
    require(control.initPrimDns == form.primaryDns && control.initSecDns == form.secondaryDns);
    require(control.initDhcpMode == (form.mode == 0));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    world::isolate();
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const WorkingFolder here;
    Script script(data, size);
    world::begin({});
    Neighbours neighbours(script);
    const QByteArray found = script.bytes(script.word());
    writeFile(found);

    auto control = startPanel();
    require(fileBytes() == found);
    control->connectPopup(0, 0);
    control->getNetcardList();
    if (script.flag())
        control->autoRun();

    const QString language = text(script);
    {
        QmlTranslator translator;
        translator.setTranslation(language);
        require(translator.currentLanguage() == language);
    }
    const Form form(script);
    control->hlnpSave(QString(), form.netcard, static_cast<int>(script.byte() % 12) - 1, form.mac, form.name,
                      form.mode, form.address, form.mask, form.gateway, form.primaryDns, form.secondaryDns);
    discard(control);

    makeNews();
    control = startPanel();
    require(mainCurrentLanguage == language);
    requireStored(*control, form);
    discard(control);
    world::begin({});
    return 0;
}

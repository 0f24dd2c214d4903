#include "shell/qmltranslator.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>

#include "control/panelstate.h"
#include "control/settingsfile.h"

namespace {

struct LanguageCode
{
    const char *name;
    int code;
};

constexpr LanguageCode kLanguageCodes[] = {
    {"en_US", 0},
    {"zh_TW", 1},
    {"zh_CN", 2},
};

int languageCode(const QString &name)
{
    for (const LanguageCode &language : kLanguageCodes) {
        if (name == QLatin1String(language.name))
            return language.code;
    }
    return 0;
}

} // namespace

QmlTranslator::QmlTranslator(QObject *parent)
    : QObject(parent)
    , currentLanguage_(QStringLiteral("en_US"))
{
}

void QmlTranslator::setTranslation(QString translation)
{
    const bool loaded = m_translator.load(QStringLiteral("app_%1").arg(translation), QStringLiteral(":/"));
    qDebug() << "Translator loaded:" << loaded << QDir::currentPath();

    currentLanguage_ = translation;
    mainCurrentLanguage = translation;
    const int lanCode = languageCode(translation);

    // The same object is installed again at each switch and never removed.
    QCoreApplication::installTranslator(&m_translator);

    {
        QSettings settings(settingsFilePath(), QSettings::IniFormat);
        SettingsGroup(settings, QStringLiteral("setting")).set("language", translation);
    }

    emit languageChanged(lanCode);
}

QString QmlTranslator::currentLanguage() const
{
    return currentLanguage_;
}

QString QmlTranslator::getEmptyString() const
{
    return QStringLiteral("");
}

#include "shell/qmltranslator.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QSettings>

#include "shell/universalconst.h"

QString mainCurrentLanguage;

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

    QSettings settings(QStringLiteral(SETTINGS_PATH_FORMAT)
                           .arg(QStringLiteral(ORG_NAME), QStringLiteral(APP_NAME), QStringLiteral(APP_NAME)),
                       QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("setting"));
    settings.setValue(QStringLiteral("language"), translation);
    settings.endGroup();
    settings.sync();

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

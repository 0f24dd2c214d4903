#pragma once

#include <QObject>
#include <QString>
#include <QTranslator>

// Switches the language of the interface while it runs. QML adds e_str to every translated text, so that
// those bindings run again whenever languageChanged fires.
class QmlTranslator : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString e_str READ getEmptyString NOTIFY languageChanged)

public:
    explicit QmlTranslator(QObject *parent = nullptr);

    // Loads catalogue "app_<translation>" from the resource root, installs it, stores the name in the settings
    // file (group "setting", key "language") and fires languageChanged. "en_US", "zh_TW" and "zh_CN" have
    // catalogues; any other name is stored and reported all the same, and the texts show their sources.
    Q_INVOKABLE void setTranslation(QString translation);

    // The name last given to setTranslation, "en_US" before the first.
    Q_INVOKABLE QString currentLanguage() const;

    QString getEmptyString() const;

signals:
    // 0 English or unknown, 1 traditional Chinese, 2 simplified Chinese.
    void languageChanged(int lanCode);

private:
    QTranslator m_translator;
    QString currentLanguage_;
};

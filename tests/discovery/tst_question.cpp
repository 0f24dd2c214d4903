#include "discovery/hlnp.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

// The question before the network settings of a unit are reset or saved.

class TestQuestion : public QObject
{
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void otherModesAskNothing();
};

void TestQuestion::answers_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("question");
    const QString reset = QStringLiteral("Reset device network configuration?");
    const QString save = QStringLiteral("Save device network configuration?");
    QTest::newRow("reset, yes") << 0 << int(QMessageBox::Yes) << reset;
    QTest::newRow("reset, no") << 0 << int(QMessageBox::No) << reset;
    QTest::newRow("save, yes") << 1 << int(QMessageBox::Yes) << save;
    QTest::newRow("save, no") << 1 << int(QMessageBox::No) << save;
}

void TestQuestion::answers()
{
    QFETCH(int, mode);
    QFETCH(int, answer);
    HLNP hlnp;
    QSignalSpy busy(&hlnp, &HLNP::setNetConfigBusy);
    QSignalSpy resetButton(&hlnp, &HLNP::SetButtonReset);
    QSignalSpy saveButton(&hlnp, &HLNP::SetButtonSave);

    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QTimer::singleShot(200, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr)
            return; // nothing was asked; the texts below stay empty
        title = box->windowTitle();
        text = box->text();
        buttons = box->standardButtons();
        box->button(static_cast<QMessageBox::StandardButton>(answer))->click();
    });
    const bool goesOn = hlnp.beforeSaveNetConfig(mode);

    QCOMPARE(goesOn, answer == QMessageBox::Yes);
    QCOMPARE(title, QStringLiteral("Warning"));
    QTEST(text, "question");
    QCOMPARE(buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(busy.size(), goesOn ? 0 : 1);
    QCOMPARE(resetButton.size(), !goesOn && mode == 0 ? 1 : 0);
    QCOMPARE(saveButton.size(), !goesOn && mode == 1 ? 1 : 0);
    if (goesOn)
        return;
    QCOMPARE(busy.first().first().toBool(), false);
    QCOMPARE((mode == 0 ? resetButton : saveButton).first().first().toBool(), true);
}

void TestQuestion::otherModesAskNothing()
{
    HLNP hlnp;
    QVERIFY(hlnp.beforeSaveNetConfig(2));
    QVERIFY(hlnp.beforeSaveNetConfig(-1));
}

QTEST_MAIN(TestQuestion)
#include "tst_question.moc"

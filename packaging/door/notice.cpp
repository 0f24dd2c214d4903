// qkv720-notice TITLE TEXT: one sentence in a window, for a start from a desktop, where nobody reads standard error.

#include <QApplication>
#include <QMessageBox>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    constexpr int kUsage = 2;
    if (words.size() != 3)
        return kUsage;
    QMessageBox box(QMessageBox::Warning, words.at(1), words.at(2), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    return box.exec() == QMessageBox::Ok ? 0 : 1;
}

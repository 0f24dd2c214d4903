#pragma once

#include "ctl/unitlink.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QJsonObject>

#include <optional>

namespace ctl {

// The whole look of a unit, as it stands in a file: every field that can be set.
class Show
{
public:
    static constexpr int kVersion = 1;

    // The functions that make up a look: in the order of the file, and in the order in which they are sent. What
    // lies under the key goes first, the colour before the angle and the levels that it moves, and the outputs
    // last, so that they change over when the look is whole.
    static QVector<const UnitFunction *> functions();
    static QVector<const UnitFunction *> sendingOrder();
    // Not so the mode of the automatic key: it tells how the colour was found, and sent it would start a search.
    static bool isSetting(const UnitFunction &function, const UnitField &field);

    // What the link has read. Values outside their ranges are left out and named in `odd`.
    static Show of(const UnitLink &link, QStringList *odd);

    // An empty text is success. A file is taken whole or not at all; it need not hold every field.
    QString load(const QString &file);
    QString save(const QString &file) const;

    bool has(const UnitFunction &function) const;
    std::optional<qint64> value(const UnitField &field) const;
    // Leaves only these functions.
    void keep(const QVector<const UnitFunction *> &wanted);

    static QJsonObject schema();

private:
    QByteArray text() const;
    QString take(const QJsonObject &root);
    QString takeFields(const UnitFunction &function, const QJsonObject &fields);

    QVector<QPair<QString, QString>> m_unit; // what it was saved from
    QDateTime m_saved;
    QHash<const UnitField *, qint64> m_values;
};

// A field that two looks hold differently.
struct Difference
{
    const UnitFunction *function;
    const UnitField *field;
    qint64 left;
    qint64 right;
};
// Of the fields that both hold.
QVector<Difference> differences(const Show &left, const Show &right);

} // namespace ctl

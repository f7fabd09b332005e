#include "sheets/NumberForms.h"

#include <QRegularExpression>

#include <array>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

struct FormRange {
    int first;
    int last;
    NumberForm form;
};

constexpr std::array kForms{
    FormRange{5, 8, NumberForm::Dressed}, FormRange{9, 13, NumberForm::Dressed},
    FormRange{14, 22, NumberForm::Date},  FormRange{27, 36, NumberForm::Date},
    FormRange{45, 47, NumberForm::Date},  FormRange{48, 48, NumberForm::Dressed},
    FormRange{50, 58, NumberForm::Date},
};

} // namespace

NumberForm NumberFormOf(const QString& code) {
    // Blanks as wide as a letter, fillings, colours and conditions change nothing that is read.
    static const QRegularExpression unseen(u"_.|\\*.|\\[(?![hms]+\\])[^\\]]*\\]|\"\\s*\""_s,
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression plain(u"^(general|@|([#,]*0|[#,]+)(\\.[0#]+)?)\\s*$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression quoted(u"\"[^\"]*\"|\\\\."_s);
    static const QRegularExpression date(u"[ymdhsaｙ年月日]"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    QString first = code.section(u';', 0, 0);
    first.remove(unseen);
    if (plain.match(first).hasMatch()) {
        return NumberForm::Plain;
    }
    first.remove(quoted);
    return date.match(first).hasMatch() ? NumberForm::Date : NumberForm::Dressed;
}

NumberForm NumberFormOf(int number) {
    for (const FormRange& range : kForms) {
        if (number >= range.first && number <= range.last) {
            return range.form;
        }
    }
    return NumberForm::Plain;
}

QString NumberText(const QString& stored) {
    constexpr int kDigits = 15;
    bool isNumber = false;
    const double value = stored.toDouble(&isNumber);
    if (!isNumber) {
        return stored;
    }
    return value == 0 ? u"0"_s : QString::number(value, 'g', kDigits);
}

} // namespace sheets

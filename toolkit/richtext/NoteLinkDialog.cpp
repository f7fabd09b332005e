#include "toolkit/richtext/NoteLinkDialog.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QUrl>
#include <QVBoxLayout>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAddressWidth = 400;

QLineEdit* MakeLinkLine(QWidget& parent, const QString& name, const QString& text) {
    auto* line = new QLineEdit(&parent);
    line->setObjectName(name);
    line->setAccessibleName(text);
    line->setToolTip(text);
    line->setMinimumWidth(kAddressWidth);
    return line;
}

} // namespace

QString WholeAddress(const QString& typed) {
    // What follows the colon of a host is the number of a port.
    static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]*:(?![0-9])"_s);
    const QString address = typed.trimmed();
    if (address.isEmpty() || scheme.match(address).hasMatch()) {
        return address;
    }
    const bool isMail = address.contains(u'@') && !address.contains(u'/');
    return (isMail ? u"mailto:"_s : u"https://"_s) + address;
}

QString FaultOfAddress(const QString& address) {
    if (address.isEmpty()) {
        return {};
    }
    if (!IsLinkAllowed(address)) {
        return u"只能链接到以 http://、https:// 或 mailto: 开头的地址。"_s;
    }
    const QUrl url(address);
    const bool isWeb = url.scheme().startsWith(u"http"_s);
    const bool isWhole = url.isValid() && (isWeb ? !url.host().isEmpty() : !url.path().isEmpty());
    return isWhole ? QString() : u"地址不完整或有错，例如：https://www.example.cn"_s;
}

NoteLinkDialog::NoteLinkDialog(const NoteLinkWords& present, bool isTextFixed, QWidget* parent)
    : QDialog(parent) {
    setObjectName(u"noteLinkDialog"_s);
    setWindowTitle(u"插入链接"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    m_text = MakeLinkLine(*this, u"linkText"_s, u"显示的文字"_s);
    m_text->setText(present.text);
    m_text->setEnabled(!isTextFixed);
    m_text->setPlaceholderText(isTextFixed ? u"所选内容"_s : u"留空则显示网址"_s);
    m_address = MakeLinkLine(*this, u"linkAddress"_s, u"网址"_s);
    m_address->setText(present.address);
    m_address->setPlaceholderText(u"留空则取消链接"_s);
    m_fault = new QLabel(this);
    m_fault->setObjectName(u"linkFault"_s);
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setWordWrap(true);
    QPalette red = m_fault->palette();
    red.setColor(QPalette::WindowText, Colors::ErrorText());
    m_fault->setPalette(red);
    // The window keeps its height when the sentence comes.
    m_fault->setMinimumHeight(m_fault->fontMetrics().height());
    connect(m_address, &QLineEdit::textEdited, m_fault, &QLabel::clear);
    AddLines();
    m_address->setFocus();
    m_address->selectAll();
}

void NoteLinkDialog::AddLines() {
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setSpacing(2 * kStep);
    form->addRow(u"显示的文字："_s, m_text);
    form->addRow(u"网址："_s, m_address);
    form->addRow(QString(), m_fault);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(u"确定"_s, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(u"取消"_s, QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &NoteLinkDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(3 * kStep, 3 * kStep, 3 * kStep, 3 * kStep);
    lines->setSpacing(2 * kStep);
    lines->addLayout(form);
    lines->addWidget(buttons);
}

NoteLinkWords NoteLinkDialog::Words() const {
    return {WholeAddress(m_address->text()), m_text->isEnabled() ? m_text->text() : QString()};
}

void NoteLinkDialog::accept() {
    const QString fault = FaultOfAddress(Words().address);
    m_fault->setText(fault);
    if (fault.isEmpty()) {
        QDialog::accept();
        return;
    }
    m_address->setFocus();
    m_address->selectAll();
}

} // namespace toolkit

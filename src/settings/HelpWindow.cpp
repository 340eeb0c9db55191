#include "settings/HelpWindow.h"

#include "settings/HelpTopics.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>

namespace {
// A help file bigger than this is not ours: it is not read at all.
constexpr qint64 MaxHelpFileBytes = 8 * 1024 * 1024;
} // namespace

namespace HelpDocument {

QString PathIn(const QString &folder)
{
    return folder + (folder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/")) + QStringLiteral("Helixbench.hlp");
}

QStringList AnchorNames(const QTextDocument &document)
{
    QStringList names;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        names += block.blockFormat().property(QTextFormat::AnchorName).toStringList();
        for (auto it = block.begin(); !it.atEnd(); ++it)
            names += it.fragment().charFormat().anchorNames();
    }
    names.removeDuplicates();
    return names;
}

QStringList Anchors(const QString &path)
{
    QFile file(path);
    if (file.size() <= 0 || file.size() > MaxHelpFileBytes || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (!bytes.contains("<html") && !bytes.contains("<HTML"))
        return {};
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    QTextDocument document;
    document.setHtml(decoder(bytes));
    const QStringList names = AnchorNames(document);
    return names.contains(HelpTopics::ContentsAnchor()) ? names : QStringList();
}

} // namespace HelpDocument

HelpWindow::HelpWindow(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("Helixbench Help"));
    setAttribute(Qt::WA_QuitOnClose, false);

    HelpContentsButton = Form::Button(this, QStringLiteral("HelpContentsButton"), QStringLiteral("&Contents"));
    HelpBackButton = Form::Button(this, QStringLiteral("HelpBackButton"), QStringLiteral("&Back"));
    HelpForwardButton = Form::Button(this, QStringLiteral("HelpForwardButton"), QStringLiteral("&Forward"));
    HelpFindText = new QLineEdit(this);
    HelpFindText->setObjectName(QStringLiteral("HelpFindText"));
    HelpFindText->setPlaceholderText(QStringLiteral("Find in this page"));
    HelpFindText->setClearButtonEnabled(true);
    HelpFindNextButton = Form::Button(this, QStringLiteral("HelpFindNextButton"), QStringLiteral("Find &next"));
    HelpFindPreviousButton = Form::Button(this, QStringLiteral("HelpFindPreviousButton"), QStringLiteral("Find &previous"));
    HelpFindStatus = new QLabel(this);
    HelpFindStatus->setObjectName(QStringLiteral("HelpFindStatus"));
    HelpBackButton->setEnabled(false);
    HelpForwardButton->setEnabled(false);

    HelpBrowser = new QTextBrowser(this);
    HelpBrowser->setObjectName(QStringLiteral("HelpBrowser"));
    HelpBrowser->setOpenExternalLinks(true);

    auto *bar = new QHBoxLayout;
    bar->addWidget(HelpContentsButton);
    bar->addWidget(HelpBackButton);
    bar->addWidget(HelpForwardButton);
    bar->addSpacing(16);
    bar->addWidget(HelpFindText, 1);
    bar->addWidget(HelpFindNextButton);
    bar->addWidget(HelpFindPreviousButton);
    bar->addWidget(HelpFindStatus);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(HelpBrowser, 1);

    connect(HelpContentsButton, &QPushButton::clicked, this, [this] { ShowAnchor(path, HelpTopics::ContentsAnchor()); });
    connect(HelpBackButton, &QPushButton::clicked, HelpBrowser, &QTextBrowser::backward);
    connect(HelpForwardButton, &QPushButton::clicked, HelpBrowser, &QTextBrowser::forward);
    connect(HelpBrowser, &QTextBrowser::backwardAvailable, HelpBackButton, &QWidget::setEnabled);
    connect(HelpBrowser, &QTextBrowser::forwardAvailable, HelpForwardButton, &QWidget::setEnabled);
    connect(HelpFindText, &QLineEdit::returnPressed, this, [this] { Find(false); });
    connect(HelpFindText, &QLineEdit::textChanged, HelpFindStatus, &QLabel::clear);
    connect(HelpFindNextButton, &QPushButton::clicked, this, [this] { Find(false); });
    connect(HelpFindPreviousButton, &QPushButton::clicked, this, [this] { Find(true); });

    // 760 x 620 pixels at 96 dots an inch; made no larger than the screen when first shown.
    resize(Placement::TwipsToPixels(11400, this), Placement::TwipsToPixels(9300, this));
}

void HelpWindow::ShowAnchor(const QString &file, const QString &anchor)
{
    path = file;
    QUrl url = QUrl::fromLocalFile(file);
    url.setFragment(anchor);
    // Within the file shown only the anchor moves; each move is a step of back and forward.
    HelpBrowser->setSource(url, QTextDocument::HtmlResource);
    show();
    if (!placed) {
        placed = true;
        Placement::CentreForm(this);
    }
    raise();
    activateWindow();
}

QString HelpWindow::CurrentAnchor() const { return HelpBrowser->source().fragment(); }

bool HelpWindow::Find(bool backwards)
{
    const QString text = HelpFindText->text();
    if (text.isEmpty())
        return false;
    const QTextDocument::FindFlags flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = HelpBrowser->find(text, flags);
    if (!found) {
        // Wrap round once: from the other end of the page.
        QTextCursor cursor = HelpBrowser->textCursor();
        cursor.movePosition(backwards ? QTextCursor::End : QTextCursor::Start);
        HelpBrowser->setTextCursor(cursor);
        found = HelpBrowser->find(text, flags);
    }
    HelpFindStatus->setText(found ? QString() : QStringLiteral("Not found"));
    return found;
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    if (event->matches(QKeySequence::Find)) {
        HelpFindText->setFocus();
        HelpFindText->selectAll();
        return;
    }
    QWidget::keyPressEvent(event);
}

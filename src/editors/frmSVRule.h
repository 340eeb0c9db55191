#pragma once
#include "core/BodyIO.h"

#include <QDialog>

class Session;
class QComboBox;
class QLabel;
class QPushButton;

// The modal dialog that edits one state variable rule: two lines of six tokens, each a combo
// of the rule vocabulary. Value holds the rule; "&Ok" takes the combos into it, "&Cancel" and
// the close box leave it as it came (tokens without a word included).
class frmSVRule : public QDialog
{
    Q_OBJECT
public:
    static constexpr int Tokens = 12;

    explicit frmSVRule(Session &session, QWidget *parent = nullptr);

    // The rule under edit, as it stands. After SetValue it is never absent.
    const StateRule &Value() const { return value; }
    // Keeps a copy (twelve zeros for an absent rule) and shows it in the combos; a token
    // without a word shows as the error word.
    void SetValue(const StateRule &rule);

    QComboBox *lstSR[Tokens] = {};
    QPushButton *SVOKCommand = nullptr;
    QPushButton *SCCancelCommand = nullptr;

signals:
    void HelpRequested(int context);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Load();
    void OkClicked();

    Session &session;
    StateRule value;
};

// Shows the dialog modally for `rule` and gives the rule it holds afterwards. A cancelled
// edit gives the rule that went in, an absent rule coming back as twelve zeros.
StateRule EditStateRule(Session &session, const StateRule &rule, QWidget *parent = nullptr);

// The text of a rule as a label shows it: each word followed by a colon, up to the first
// token 0; a token without a word as "E!(" + number + "): "; "<undefined>" for an absent or
// empty rule.
QString StateRuleText(const Session &session, const StateRule &rule);
void ShowStateRule(const Session &session, const StateRule &rule, QLabel *label);

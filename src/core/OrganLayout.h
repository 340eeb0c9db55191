#pragma once
#include <QString>

class Gene;
class Session;
class clsReaction;

// Receives the organ tree node by node while the layout walk makes it. The Organ View tab
// implements it with a tree widget; tests record the nodes.
class OrganTreeSink
{
public:
    virtual ~OrganTreeSink() = default;
    // Removes all nodes and attaches the images the node image names refer to.
    virtual void Clear() = 0;
    // Adds a node under parent (-1 for the root) and gives the handle of the new node.
    // key may be empty: the summary node of an organ has none.
    virtual int AddNode(int parent, const QString &key, const QString &text, const QString &image) = 0;
    // The line under the tree.
    virtual void SetStatusText(const QString &text) = 0;
};

// Which biochemistry genes belong to which organ. A genome has no organ field: an organ gene
// opens an organ that lasts until the next organ gene, and the receptors, emitters and
// reactions behind it are its members.
namespace OrganLayout {

// Node image names (keys of the main window's image list).
inline const QString OrganImage = QStringLiteral("organ");
inline const QString EmitterImage = QStringLiteral("emitter");
inline const QString ReactionImage = QStringLiteral("reaction");
inline const QString ReceptorImage = QStringLiteral("receptor");
inline const QString InformationImage = QStringLiteral("information");

// clsOrgan opens an organ; a brain organ does not.
bool IsOrganGene(const Gene &gene);
// Receptor, emitter or reaction.
bool IsMember(const Gene &gene);

// "M ", "F " or "B " by the sex bits of Mutability (8 wins over 16).
QString SexMark(quint8 mutability);
// "2A + <nothing> --> 1B + <nothing> (half life = 5 mins)  "
QString ReactionDetail(const Session &session, const clsReaction &reaction);
// The text of a member gene's node: number, sex mark, detail, caption.
QString OrganGeneText(const Session &session, const Gene &gene);
QString OrganSummaryText(int emitters, int receptors, int reactions);
QString StatusText(int members, int organs);

} // namespace OrganLayout

// Walks the gene list and builds the organ tree into a sink, with the statistics node and
// the status line. One builder belongs to one tree.
class OrganTreeBuilder
{
public:
    static const QString FaultContext;

    explicit OrganTreeBuilder(Session &session) : session(session) {}

    struct Totals
    {
        int organs = 0, members = 0, emitters = 0, receptors = 0, reactions = 0;
    };

    // True while a build runs: a build asked for meanwhile (from a yield) returns at once.
    bool OrganTreeBusy = false;
    // What the last build counted.
    Totals totals;

    // Rebuilds the tree and its status line and clears OrganViewStale. With no genes, or
    // while a build runs, it returns false at once and changes nothing. While the progress
    // window is visible it yields and updates the bar once per organ. A fault is reported
    // and leaves the nodes made so far; the flags are cleared in any case.
    bool BuildOrganTree(OrganTreeSink &tree);

private:
    Session &session;
    void Walk(OrganTreeSink &tree);
};

#pragma once
#include <QtGlobal>
#include <array>

class Session;

// How many genes of each category a standard genome has (mutations.txt).
class MutationTemplate
{
public:
    static constexpr int Rows = 41;
    explicit MutationTemplate(Session &session);

    std::array<qint32, Rows> DefaultGeneCounts{};

    void LoadDefaultTemplate();
    bool SaveDefaultTemplate();

private:
    Session &session;
};

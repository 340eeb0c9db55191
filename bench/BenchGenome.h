#pragma once
#include "base/AutoPrompt.h"

#include <QByteArray>

class Session;

// Benchmarks run without dialogs and can check that a run was silent.
using BenchPrompt = AutoPrompt;

// A genome of the size and mix of a real one: 900 genes of all sixteen kinds, organs
// followed by their receptors, emitters and reactions, brain lobes with rules, and every
// field in range (so that reading it corrects nothing). It fits in the image without the
// out-of-space question.
namespace BenchGenome {
constexpr int Genes = 900;

// Replaces the session's genome with the benchmark genome (no editors open).
void Build(Session &session);
// The genome as a file: the encoded image, all 36,001 bytes.
QByteArray FileBytes(Session &session);
// Puts file bytes into the image and sets WriteCursor as a load does.
void PutFile(Session &session, const QByteArray &bytes);
}

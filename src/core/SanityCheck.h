#pragma once


class Gene;
class Session;

// Genes the game could not tell apart: two genes at different places of the gene list with
// the same kind, ID and generation.
bool AreDuplicates(const Gene &a, const Gene &b);

// Checks the whole genome for such genes under the progress window, with one error box for
// each ordered pair (so each duplicate pair is met from both sides), and ends with the total.
// Status panel 1 reads "Processing..." meanwhile and has its old text back at the end.
// Changes no gene. Gives the number of errors.
int SanityCheck(Session &session);

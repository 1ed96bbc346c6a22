#ifndef CORPUS_H
#define CORPUS_H

#include <QString>

// The generated script of `lines` lines (gen_corpus.py, seed 1), made
// once per run: its path, and its text.
QString corpusFile(int lines);
QString corpusText(int lines);

#endif // CORPUS_H

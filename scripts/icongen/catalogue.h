// The catalogue: every image under resources/, with the resource prefix it is
// collected under, the size it is drawn at and the picture that draws it.

#pragma once

#include <QString>

#include <functional>
#include <vector>

class QPainter;

using Draw = std::function<void(QPainter &)>;

struct Entry
{
    QString prefix; // resource prefix, as "/find"
    QString file;   // below the resources directory, as "img_assets/editor/find/magnify.png"
    int size;
    Draw draw;
};

std::vector<Entry> catalogue();

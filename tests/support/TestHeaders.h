// What most tests with windows include: compiled once for all of them.

#include <QTest>
#include <QtWidgets>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

/// @file
/// What most sources here include, compiled once.
#include "openssl_types.h"

#include <QByteArray>
#include <QString>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

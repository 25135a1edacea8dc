/// @file
/// What most tests include, compiled once for all of them.
#ifndef TESTHEADERS_H
#define TESTHEADERS_H

#include "openpad.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#endif

// The members that all headless hosts forward in the same way.
#ifndef KV_PAD // so that an editor can parse this file by itself
#include "cs300signobj.h"
#include "defined.h"
#define KV_PAD CS300SignObj
#endif

KV_PAD::KV_PAD(int nWidth, int nHeight) { canvashost::beginHeadless(*this, nWidth, nHeight); }

KV_PAD::~KV_PAD() { openinstance::destroyed(*this); }

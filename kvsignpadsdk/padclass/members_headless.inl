// The members that all headless hosts forward alike.
#ifndef KV_PAD // an editor that looks at this file alone
#include "cs300signobj.h"
#include "defined.h"
#define KV_PAD CS300SignObj
#endif

KV_PAD::KV_PAD(int nWidth, int nHeight) { canvashost::beginHeadless(*this, nWidth, nHeight); }

KV_PAD::~KV_PAD() { openinstance::destroyed(*this); }

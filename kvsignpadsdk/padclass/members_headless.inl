// The members that all headless hosts forward alike.

KV_PAD::KV_PAD(int nWidth, int nHeight) { canvashost::beginHeadless(*this, nWidth, nHeight); }

KV_PAD::~KV_PAD() { openinstance::destroyed(*this); }

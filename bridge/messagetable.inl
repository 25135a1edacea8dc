// Made by bridge/generate from protocol.schema.json, not to be edited.

inline constexpr Member k_open[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
    {"model", Kind::Word, 0, 0, "S210|S300|S310X|R800|M450", true},
    {"width", Kind::Integer, 1, 4096, "", true},
    {"height", Kind::Integer, 1, 4096, "", true},
    {"penWidth", Kind::Integer, 1, 10, "", false},
    {"penColor", Kind::Color, 0, 0, "", false},
    {"penPressure", Kind::Boolean, 0, 0, "", false},
};
inline constexpr Member k_pen[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
    {"width", Kind::Integer, 1, 10, "", false},
    {"color", Kind::Color, 0, 0, "", false},
    {"pressure", Kind::Boolean, 0, 0, "", false},
};
inline constexpr Member k_clear[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
};
inline constexpr Member k_image[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
    {"kind", Kind::Word, 0, 0, "png|jpeg|bmp|svg|pdf|ink|fingerprint", true},
    {"transparent", Kind::Boolean, 0, 0, "", false},
    {"dpi", Kind::Integer, 150, 300, "150|300", false},
    {"marginX", Kind::Integer, 0, 4096, "", false},
    {"marginY", Kind::Integer, 0, 4096, "", false},
};
inline constexpr Member k_live[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
    {"on", Kind::Boolean, 0, 0, "", true},
    {"kind", Kind::Word, 0, 0, "png|jpeg", false},
};
inline constexpr Member k_fingerprint[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
    {"left", Kind::Integer, 0, 4095, "", true},
    {"top", Kind::Integer, 0, 4095, "", true},
    {"width", Kind::Integer, 1, 4096, "", true},
    {"height", Kind::Integer, 1, 4096, "", true},
    {"canvasWidth", Kind::Integer, 1, 4096, "", true},
    {"canvasHeight", Kind::Integer, 1, 4096, "", true},
};
inline constexpr Member k_close[] = {
    {"id", Kind::Integer, 1, 2147483647, "", true},
};

inline constexpr Operation kOperations[] = {
    {"open", k_open, std::size(k_open)},
    {"pen", k_pen, std::size(k_pen)},
    {"clear", k_clear, std::size(k_clear)},
    {"image", k_image, std::size(k_image)},
    {"live", k_live, std::size(k_live)},
    {"fingerprint", k_fingerprint, std::size(k_fingerprint)},
    {"close", k_close, std::size(k_close)},
};

inline constexpr ErrorRow kErrors[] = {
    {"bad-message", "This message cannot be read."},
    {"busy", "Another page or program uses the signature pad. This one is in the queue."},
    {"denied", "The person at this computer has not let this page use the signature pad."},
    {"no-pad", "No signature pad of this model answers. Is it plugged in?"},
    {"no-driver", "The signature pad's driver is missing on this computer, or is not safe."},
    {"lost", "The signature pad has been unplugged. It is being looked for."},
    {"not-open", "This page has not opened the signature pad."},
    {"already-open", "This page has the signature pad already."},
    {"not-supported", "This signature pad cannot do that."},
    {"no-ink", "Nothing has been written yet."},
    {"failed", "The signature pad refused. Is it still plugged in?"},
    {"too-many", "Too many requests are waiting for an answer."},
};

// Removed once this library has its first real source file.
namespace quor {}

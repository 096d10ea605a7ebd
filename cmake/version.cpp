namespace tarvola {

const char* version() noexcept { return "0.1.0"; }

}  // namespace tarvola

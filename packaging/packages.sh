# The Debian 12 packages that each task needs, for run, check and .ci/run to source. (clang-tidy, of
# which any version will do, stands in .ci/run.)
build_packages=(g++ cmake ninja-build qt6-base-dev libqt6sql6-sqlite libgl1-mesa-dev)
run_packages=(poppler-utils tesseract-ocr tesseract-ocr-eng fonts-dejavu-core sqlite3)
window_packages=(xvfb xauth)
trace_packages=(strace)
hands_packages=(openbox libxtst-dev)
inspect_packages=(clang-format)

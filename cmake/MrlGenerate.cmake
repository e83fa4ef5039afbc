# Renders the generated families from the catalogue at build time, into MRL_GENERATED_DIR.
set(MRL_GENERATED_DIR "${PROJECT_BINARY_DIR}/generated")
set(MRL_PYTHON /usr/bin/python3)

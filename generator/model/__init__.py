"""The catalogue as the templates see it: read, resolved and checked."""

# Libraries of the tools, samples and tests; the product itself links none of them.
include(GoogleTest OPTIONAL)

// Shared test helpers land here.

#pragma once

// Makes text look the same on every machine: drawn natively, antialiased in grey and hinted upright, whatever the
// machine's font settings ask for, and each family that the documents name drawn by the same face everywhere.
// Called once, before the application object stands.
void prepareLettering();

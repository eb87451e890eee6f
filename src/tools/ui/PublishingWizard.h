#pragma once

namespace tessaro {

class WizardPage;

namespace wizard {

// Each page exists at most once, as one window (the page's default instance).

// Shows page `number` (1 to 5), creating it when it does not exist, and brings it to
// the front. Returns the page.
WizardPage *showPage(int number);

// The page's open window, nullptr when it is not loaded.
WizardPage *loadedPage(int number);

// Called by a page that is being unloaded: it is no longer the page's window.
void forgetPage(WizardPage *page);

// The Publish Mod command: shows the first page without waiting for the wizard.
void open();

} // namespace wizard

} // namespace tessaro

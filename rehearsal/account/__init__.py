"""An account of what the gateway ought to have posted, worked out from the practice network's ledger alone. It
shares nothing with the program: another language, another way of thinking, the same rules."""

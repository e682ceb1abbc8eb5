! Values of a model for programs of our customers. The driver hands them out as they stand, so any key
! may be used here.

[Ostrel]
Support.Site=support.vantrel.example

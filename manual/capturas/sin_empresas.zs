# The first window where there is no company.

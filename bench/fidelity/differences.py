def report(run, most, only, jobs):
    pass
